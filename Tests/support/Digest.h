#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

// A number of a long text that changes with every character of it, as a text (FNV-1a, 64 bits).
inline std::string DigestOf(const std::string& text) {
    uint64_t digest = 0xCBF29CE484222325;
    for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    char digits[17];
    snprintf(digits, sizeof digits, "%016llX", static_cast<unsigned long long>(digest));
    return digits;
}
