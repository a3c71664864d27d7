#include "utils/hdf5/Hdf5Library.h"

#include <hdf5.h>

#include "utils/MemoryReserve.h"

void Hdf5Library::Prepare() {
    const MemoryReserve::Loan memory;
    if (!memory.hasRoom()) return;
    static const bool isPrepared = H5dont_atexit() >= 0 && H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr) >= 0;
    static_cast<void>(isPrepared);
}
