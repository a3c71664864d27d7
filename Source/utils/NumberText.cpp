#include "utils/NumberText.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstring>

#include "utils/Digits.h"

namespace {

__extension__ typedef unsigned __int128 Wide;

constexpr int MANTISSA_BITS = DBL_MANT_DIG - 1;
constexpr double FIRST_WITHOUT_FRACTION = 4503599627370496.0;  // 2^52

// The fraction of mantissa / 2^fractionBits in units of 1/unit, an exact half to the even neighbour as in printf; it
// may come to a whole one. Exact: 64 bits of fraction times the unit, and one that stands for any bits below.
unsigned long long RoundedFraction(unsigned long long mantissa, int fractionBits, unsigned long long unit) {
    constexpr unsigned long long HALF = 1ull << 63;
    const int bitsBelow = fractionBits - 64;
    Wide product = static_cast<Wide>(mantissa << std::max(-bitsBelow, 0)) * unit;
    if (bitsBelow > 0) product = product >> bitsBelow | (product << (128 - bitsBelow) != 0 ? 1 : 0);
    const unsigned long long units = static_cast<unsigned long long>(product >> 64);
    const unsigned long long dropped = static_cast<unsigned long long>(product);
    return units + (dropped > HALF - (units & 1) ? 1 : 0);
}

// With three or six decimals, those of times and of values; of a magnitude below 2^52. The place behind the text.
template <unsigned int DECIMALS>
char* PutQuickly(char* at, double value) {
    constexpr unsigned long long UNIT = DECIMALS == 3 ? 1000 : 1000000;
    constexpr unsigned long long HIDDEN_BIT = 1ull << MANTISSA_BITS;
    constexpr int FRACTION_BITS_AT_EXPONENT_0 = 1023 + MANTISSA_BITS;
    constexpr int MOST_FRACTION_BITS = 127;  // more of them mean a value that rounds to zero all the same
    unsigned long long bits;
    memcpy(&bits, &value, sizeof bits);
    const unsigned long long mantissa = (bits & (HIDDEN_BIT - 1)) | HIDDEN_BIT;
    const int exponent = static_cast<int>(bits >> MANTISSA_BITS & 0x7FF);
    const int fractionBits = std::min(FRACTION_BITS_AT_EXPONENT_0 - exponent, MOST_FRACTION_BITS);
    const unsigned long long fraction = RoundedFraction(mantissa, fractionBits, UNIT);
    const bool isCarried = fraction == UNIT;
    const unsigned long long whole =
        (fractionBits > MANTISSA_BITS ? 0 : mantissa >> fractionBits) + (isCarried ? 1 : 0);
    *at = '-';
    at += bits >> 63;
    at = whole < 1000 ? Digits::PutShort(at, whole) : std::to_chars(at, at + NumberText::MAX_LENGTH, whole).ptr;
    *at++ = '.';
    const unsigned long long digits = isCarried ? 0 : fraction;
    return DECIMALS == 3 ? Digits::PutThree(at, digits) : Digits::PutSix(at, digits);
}

size_t LongFixed(double value, unsigned int decimals, char* buf) {
    constexpr unsigned int EXACT_DECIMALS = 1074;  // no double has more; only zeros follow
    char text[DBL_MAX_10_EXP + EXACT_DECIMALS + 8];
    const auto end = std::to_chars(text, text + sizeof(text), value, std::chars_format::fixed,
                                   static_cast<int>(std::min(decimals, EXACT_DECIMALS)));
    const size_t length = std::min<size_t>(static_cast<size_t>(end.ptr - text), NumberText::MAX_LENGTH);
    memcpy(buf, text, length);
    buf[length] = '\0';
    return length;
}

}  // namespace

size_t NumberText::Fixed(double value, unsigned int decimals, char* buf) {
    if (std::isnan(value)) {
        memcpy(buf, "nan", sizeof("nan"));
        return strlen("nan");
    }
    if ((decimals != 3 && decimals != 6) || std::fabs(value) >= FIRST_WITHOUT_FRACTION) {
        return LongFixed(value, decimals, buf);
    }
    char* const end = decimals == 3 ? PutQuickly<3>(buf, value) : PutQuickly<6>(buf, value);
    *end = '\0';
    return static_cast<size_t>(end - buf);
}
