#pragma once

#include <array>
#include <cstddef>
#include <cstring>

// Decimal digits by the three, out of a table. Each operation gives the place behind its digits; that byte is
// overwritten too.
namespace Digits {

// "000" to "999", each followed by a NUL: four bytes are moved at once.
inline constexpr std::array<char, 4000> TRIPLES = [] {
    std::array<char, 4000> triples{};
    for (size_t i = 0; i < 1000; ++i) {
        triples[4 * i] = static_cast<char>('0' + i / 100);
        triples[4 * i + 1] = static_cast<char>('0' + i / 10 % 10);
        triples[4 * i + 2] = static_cast<char>('0' + i % 10);
    }
    return triples;
}();

// All three digits of a number below 1000.
inline char* PutThree(char* at, unsigned long long number) {
    memcpy(at, &TRIPLES[4 * number], 4);
    return at + 3;
}

// All six digits of a number below 1000000.
inline char* PutSix(char* at, unsigned long long number) {
    return PutThree(PutThree(at, number / 1000), number % 1000);
}

// A number below 1000 without leading zeros; up to three bytes behind it are overwritten.
inline char* PutShort(char* at, unsigned long long number) {
    const size_t zeros = static_cast<size_t>(number < 100) + static_cast<size_t>(number < 10);
    memcpy(at, &TRIPLES[4 * number + zeros], 4);
    return at + 3 - zeros;
}

}  // namespace Digits
