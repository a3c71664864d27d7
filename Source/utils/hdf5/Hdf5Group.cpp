#include "utils/hdf5/Hdf5Group.h"

#include "utils/hdf5/Hdf5Handle.h"

// What the library keeps about an item without the time of its making.
static Hdf5Id NewCreationList(Hdf5File& file, Hdf5Id kind) {
    const Hdf5Id list = file.call([&] { return H5Pcreate(kind); });
    file.call([&] { return H5Pset_obj_track_times(list, false); });
    return list;
}

Hdf5Group& Hdf5Group::addGroup(const Str& name) {
    if (Hdf5Group* const known = groups_.get(name)) return *known;
    const MemoryReserve::Loan memory;
    const Hdf5Handle creation(NewCreationList(file_, H5P_GROUP_CREATE), &H5Pclose);
    const Hdf5Id made = file_.call([&] { return H5Gcreate2(id(), name.cStr(), H5P_DEFAULT, creation, H5P_DEFAULT); });
    Hdf5Group* const group = new Hdf5Group(file_, -1);
    group->open(made);
    groups_.put(name, group, true);
    return *group;
}

// The file has the columns, so that it can write and close them all.
template <typename Column, typename... Shape>
Column& Hdf5Group::addColumn(FastMap<const Str, Column*>& columns, const Str& name, const Shape&... shape) {
    if (Column* const known = columns.get(name)) return *known;
    Column* const column = new Column(file_, id(), name.cStr(), shape...);
    file_.adopt(column);
    columns.put(name, column, false);
    return *column;
}

Hdf5NumberColumn& Hdf5Group::addNumberColumn(const Str& name, const Hdf5Shape& recordShape) {
    return addColumn(numberColumns_, name, recordShape);
}

Hdf5TextColumn& Hdf5Group::addTextColumn(const Str& name) {
    return addColumn(textColumns_, name);
}

Hdf5ReferenceColumn& Hdf5Group::addReferenceColumn(const Str& name) {
    return addColumn(referenceColumns_, name);
}

// Small arrays lie with their description: one place to read instead of two.
static const size_t COMPACT_ROOM = 1024;  // bytes

Hdf5Item Hdf5Group::addArray(const Str& name, const Hdf5Shape& shape, Hdf5Id fileType, Hdf5Id memoryType,
                             size_t elementSize, const void* values) {
    const MemoryReserve::Loan memory;
    const Hdf5Handle space(file_.call([&] { return H5Screate_simple(shape.rank_, shape.dims_, nullptr); }), &H5Sclose);
    const Hdf5Handle creation(NewCreationList(file_, H5P_DATASET_CREATE), &H5Pclose);
    if (shape.elements() * elementSize <= COMPACT_ROOM) {
        file_.call([&] { return H5Pset_layout(creation, H5D_COMPACT); });
    }
    const Hdf5Id made =
        file_.call([&] { return H5Dcreate2(id(), name.cStr(), fileType, space, H5P_DEFAULT, creation, H5P_DEFAULT); });
    file_.call([&] { return H5Dwrite(made, memoryType, H5S_ALL, H5S_ALL, H5P_DEFAULT, values); });
    return Hdf5Item(file_, made);
}

Hdf5Item Hdf5Group::addArray(const Str& name, const Hdf5Shape& shape, const double* values) {
    return addArray(name, shape, H5T_IEEE_F64LE, H5T_NATIVE_DOUBLE, sizeof *values, values);
}

Hdf5Item Hdf5Group::addArray(const Str& name, const Hdf5Shape& shape, const uint16_t* values) {
    return addArray(name, shape, H5T_STD_U16LE, H5T_NATIVE_UINT16, sizeof *values, values);
}

Hdf5Item Hdf5Group::addArray(const Str& name, const Hdf5Shape& shape, const uint64_t* values) {
    return addArray(name, shape, H5T_STD_U64LE, H5T_NATIVE_UINT64, sizeof *values, values);
}
