#pragma once

#include "utils/hdf5/Hdf5Group.h"

// The content of the cells of a file: data sets of their own, numbered in the order of their making.
class MatlabCells {
public:
    explicit MatlabCells(Hdf5Group& root) : root_(root) {}  // borrowed

    // Each gives the reference to a new data set.
    uint64_t addText(const Str& text);
    uint64_t addNumbers(const double* numbers, size_t count);

private:
    Hdf5Group& group();
    Str nextName() { return Str(nextNumber_++, 10); }

    Hdf5Group& root_;
    size_t nextNumber_ = 0;
};
