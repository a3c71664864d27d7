#pragma once

#include "utils/Str.h"

// Text from a log may hold any byte; formats that promise UTF-8 get it through here.
namespace Utf8 {
bool IsValid(const Str& text);
// Each byte that begins no well-formed sequence becomes U+FFFD; NUL stays.
Str Sanitized(const Str& text);
}  // namespace Utf8
