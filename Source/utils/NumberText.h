#pragma once

#include <cstddef>

// Numbers as text, independent of the process's locale.
namespace NumberText {
static const unsigned int MAX_LENGTH = 30;  // characters of a number's text; what is longer is cut there

// "%.*f" of value into buf, which has MAX_LENGTH + 1 bytes; NUL-terminated. NaN of either sign is "nan", infinities are
// "inf" and "-inf". The result is the text's length.
size_t Fixed(double value, unsigned int decimals, char* buf);
}  // namespace NumberText
