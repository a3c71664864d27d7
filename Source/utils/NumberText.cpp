#include "utils/NumberText.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstring>

#include "utils/Digits.h"

namespace {

__extension__ typedef unsigned __int128 Wide;

// A double without its sign, exactly: whole numbers, and a fraction of one in units of 2^-128.
struct Parts {
    unsigned long long whole_;
    Wide fraction_;
};

constexpr int MANTISSA_BITS = DBL_MANT_DIG - 1;
constexpr double FIRST_WITHOUT_FRACTION = 4503599627370496.0;  // 2^52

// Of a number below that. One that is so small that its last bits have no place here counts as none at all.
Parts PartsOf(double value) {
    constexpr unsigned long long HIDDEN_BIT = 1ull << MANTISSA_BITS;
    constexpr int FRACTION_BITS_AT_EXPONENT_0 = 1023 + MANTISSA_BITS;
    unsigned long long bits;
    memcpy(&bits, &value, sizeof bits);
    const unsigned long long mantissa = (bits & (HIDDEN_BIT - 1)) | HIDDEN_BIT;
    const int exponent = static_cast<int>(bits >> MANTISSA_BITS & 0x7FF);
    const int fractionBits = std::min(FRACTION_BITS_AT_EXPONENT_0 - exponent, 127);
    return {fractionBits > MANTISSA_BITS ? 0 : mantissa >> fractionBits, static_cast<Wide>(mantissa)
                                                                             << (128 - fractionBits)};
}

// The fraction in units of 1/unit, an exact half to the even neighbour as in printf; at most the unit itself.
unsigned long long Rounded(Wide fraction, unsigned long long unit) {
    constexpr unsigned long long HALF = 1ull << 63;
    const Wide low = static_cast<Wide>(static_cast<unsigned long long>(fraction)) * unit;
    const Wide high = (fraction >> 64) * unit + (low >> 64);
    const unsigned long long units = static_cast<unsigned long long>(high >> 64);
    const unsigned long long dropped = static_cast<unsigned long long>(high);
    const bool isOdd = (units & 1) != 0 || static_cast<unsigned long long>(low) != 0;
    return units + ((dropped > HALF || (dropped == HALF && isOdd)) ? 1 : 0);
}

// With three or six decimals: those of times and of values. The place behind the text.
char* PutQuickly(char* at, double value, unsigned int decimals) {
    const unsigned long long unit = decimals == 3 ? 1000 : 1000000;
    Parts parts = PartsOf(value);
    unsigned long long fraction = Rounded(parts.fraction_, unit);
    if (fraction == unit) {
        ++parts.whole_;
        fraction = 0;
    }
    *at = '-';
    at += std::signbit(value) ? 1 : 0;
    at = parts.whole_ < 1000 ? Digits::PutShort(at, parts.whole_)
                             : std::to_chars(at, at + NumberText::MAX_LENGTH, parts.whole_).ptr;
    *at++ = '.';
    return decimals == 3 ? Digits::PutThree(at, fraction) : Digits::PutSix(at, fraction);
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
    char* const end = PutQuickly(buf, value, decimals);
    *end = '\0';
    return static_cast<size_t>(end - buf);
}
