#pragma once

#include "utils/Str.h"

// Names as NetCDF takes them.
namespace NetCdfNames {
static const size_t MAX_LENGTH = 240;  // bytes; room is left for endings such as "_units"

// The text with '_' for what the format forbids, cut to length; "_" for an empty one.
Str Valid(const Str& text);
// The name of an element: its ':' and '/' are parts of the name like '.', and become one.
Str OfElement(const Str& name);
}  // namespace NetCdfNames
