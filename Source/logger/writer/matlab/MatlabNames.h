#pragma once

#include "utils/Str.h"

// Names as Matlab takes them: letters, digits and '_', a letter first.
namespace MatlabNames {
static const size_t MAX_LENGTH = 63;

// The text with '_' for each other character, "x" in front where no letter begins it, cut to length.
Str Identifier(const Str& text);
// The identifier with "_" and the number behind it, as a whole within the length.
Str Numbered(const Str& identifier, unsigned int number);
}  // namespace MatlabNames
