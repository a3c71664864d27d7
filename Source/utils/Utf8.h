#pragma once

#include "utils/Str.h"

// Text from a log may hold any byte; formats that promise UTF-8 get it through here.
namespace Utf8 {
// True for well-formed UTF-8 throughout: no overlong form, no surrogate, nothing above U+10FFFF. NUL is well-formed.
bool IsValid(const Str& text);
enum Nul { KEEP_NUL, REPLACE_NUL };
// Each byte that begins no well-formed sequence becomes U+FFFD; and so, if told, does NUL, where others see an end.
Str Sanitized(const Str& text, Nul nul = KEEP_NUL);
}  // namespace Utf8
