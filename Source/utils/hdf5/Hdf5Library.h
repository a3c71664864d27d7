#pragma once

// The HDF5 library, on which NetCDF-4 files stand too.
namespace Hdf5Library {
// Comes before the first call of HDF5 or NetCDF in the process: failures are told by status alone, not printed, and no
// handler runs at exit, which after a failed write can crash the process. Calls after the first do nothing.
void Prepare();
}  // namespace Hdf5Library
