#pragma once

#include <cstdlib>

#include "utils/Str.h"

// The bytes of a text of hexadecimal digit pairs with blanks between them.
inline Str FromHex(const char* text) {
    Str bytes;
    for (char* end = nullptr;; text = end) {
        const long byte = strtol(text, &end, 16);
        if (end == text) return bytes;
        bytes.pushBack(static_cast<unsigned char>(byte));
    }
}
