#pragma once

#include <cstddef>
#include <cstring>

// How the log's compact codes are read: the low bits of the first byte tell how many bytes a code has. What reads
// a value may look at all the bytes that the longest code has.
namespace CompactCode {
constexpr size_t LONGEST_USHORT = 3;     // bytes
constexpr size_t LONGEST_LONG_LONG = 9;  // bytes

inline size_t UShortLength(char first) {
    if ((first & 1) == 0) return 1;
    return (first & 2) == 0 ? 2 : LONGEST_USHORT;
}

// The number is what stands above the bits of the length; the longest form has it in the bytes after the first.
inline unsigned short UShortValue(const char* code) {
    unsigned short group;
    memcpy(&group, code, sizeof group);
    if ((group & 1) == 0) return static_cast<unsigned char>(group) >> 1;
    if ((group & 2) == 0) return group >> 2;
    memcpy(&group, code + 1, sizeof group);
    return group;
}

// The low 1-bits of the first byte, up to the first 0-bit, count the bytes that follow it.
inline size_t LongLongLength(char first) {
    return 1 + static_cast<size_t>(__builtin_ctz(~static_cast<unsigned int>(static_cast<unsigned char>(first))));
}

// Seven bits of every byte are the number, of which the top bit is the sign; in the longest form it is the eight bytes
// after the first.
inline long long LongLongValue(const char* code, size_t length) {
    unsigned long long group;
    memcpy(&group, length < LONGEST_LONG_LONG ? code : code + 1, sizeof group);
    if (length == LONGEST_LONG_LONG) return static_cast<long long>(group);
    const size_t unusedBits = 64 - 8 * length;
    return static_cast<long long>(group << unusedBits) >> (unusedBits + length);
}
}  // namespace CompactCode
