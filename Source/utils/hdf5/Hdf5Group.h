#pragma once

#include "utils/FastMap.h"
#include "utils/hdf5/Hdf5Column.h"

// A group of a file and what is in it. Making a group or column is idempotent by name; a name that an item of another
// kind has makes the file fail.
class Hdf5Group final : public Hdf5Item {
public:
    Hdf5Group(Hdf5File& file, Hdf5Id id) : Hdf5Item(file, id) {}  // the file is borrowed, the id taken over

    // What they return belongs to the file and lives until that is closed; after a failure it is there too, to no
    // effect.
    Hdf5Group& addGroup(const Str& name);
    Hdf5NumberColumn& addNumberColumn(const Str& name, const Hdf5Shape& recordShape = Hdf5Shape());
    Hdf5TextColumn& addTextColumn(const Str& name);
    Hdf5ReferenceColumn& addReferenceColumn(const Str& name);

    // A data set of values that are all there, as many as the shape says, slowest dimension first; each name once. The
    // item that is returned can bear attributes; it is closed when the caller drops it.
    Hdf5Item addArray(const Str& name, const Hdf5Shape& shape, const double* values);
    Hdf5Item addArray(const Str& name, const Hdf5Shape& shape, const uint16_t* values);
    Hdf5Item addArray(const Str& name, const Hdf5Shape& shape, const uint64_t* values);

private:
    template <typename Column, typename... Shape>
    Column& addColumn(FastMap<const Str, Column*>& columns, const Str& name, const Shape&... shape);
    Hdf5Item addArray(const Str& name, const Hdf5Shape& shape, Hdf5Id fileType, Hdf5Id memoryType, size_t elementSize,
                      const void* values);

    FastMap<const Str, Hdf5Group*> groups_;  // owned
    FastMap<const Str, Hdf5NumberColumn*> numberColumns_;
    FastMap<const Str, Hdf5TextColumn*> textColumns_;
    FastMap<const Str, Hdf5ReferenceColumn*> referenceColumns_;
};
