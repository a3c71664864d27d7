#pragma once

#include "utils/Str.h"
#include "utils/Timestamp.h"
#include "utils/hdf5/Hdf5Group.h"

// The forms that make HDF5 items Matlab values. Dimensions stand in reverse: what Matlab shows as R x C is {C, R}.
namespace MatlabForm {
static const char* const DOUBLE_CLASS = "double";
static const char* const CHAR_CLASS = "char";
static const char* const CELL_CLASS = "cell";
static const char* const NO_CLASS = nullptr;           // strings of HDF5 are nothing to Matlab
static const char* const REFERENCES_GROUP = "#refs#";  // where the content of cells is

// What Matlab is to take a group or an item for.
void MarkStruct(Hdf5Group& group);
void MarkClass(Hdf5Item& item, const char* className);

// A text as a row of UTF-16 units; what is not UTF-8 becomes U+FFFD.
Hdf5Item AddText(Hdf5Group& group, const Str& name, const Str& text);
// A row of numbers becomes a column in Matlab.
Hdf5Item AddNumbers(Hdf5Group& group, const Str& name, const double* numbers, size_t count);
// What a value of the class, or of none, without elements is.
Hdf5Item AddEmpty(Hdf5Group& group, const Str& name, const char* className);

// The bytes by which Matlab knows a file; HDF5 begins behind them.
static const size_t HEADER_SIZE = 512;
// HEADER_SIZE bytes, which tell when the file was made.
Str Header(const Timestamp& created);
}  // namespace MatlabForm
