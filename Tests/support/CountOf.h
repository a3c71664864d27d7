#pragma once

#include <string>

// How often a text stands in another; two places may overlap.
inline size_t CountOf(const std::string& text, const std::string& part) {
    size_t count = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}
