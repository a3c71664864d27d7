#include "utils/NumberText.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {

// Up to these the scaled value fits: below 2^33 * 10^9 < 2^63, and 53 bits of mantissa * 10^9 < 2^83.
constexpr double QUICK_MAGNITUDE = 8589934592.0;
constexpr unsigned int QUICK_DECIMALS = 9;

constexpr std::array<unsigned long long, QUICK_DECIMALS + 1> POWERS_OF_TEN = {
    1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};

// A double is an integer mantissa over a power of two, so value * 10^decimals is an exact 128-bit product and a shift.
// What the shift drops decides the rounding; an exact half goes to the even neighbour, as in printf.
unsigned long long ScaledAndRounded(double magnitude, unsigned int decimals) {
    constexpr int MANTISSA_BITS = DBL_MANT_DIG - 1;
    constexpr unsigned long long HIDDEN_BIT = 1ull << MANTISSA_BITS;
    constexpr int FRACTION_BITS_AT_EXPONENT_0 = 1023 + MANTISSA_BITS;
    constexpr int MOST_FRACTION_BITS = 100;  // more of them mean a value that rounds to zero all the same

    unsigned long long bits;
    memcpy(&bits, &magnitude, sizeof(bits));
    const unsigned long long mantissa = (bits & (HIDDEN_BIT - 1)) | HIDDEN_BIT;
    const int fractionBits =
        std::min(FRACTION_BITS_AT_EXPONENT_0 - static_cast<int>(bits >> MANTISSA_BITS), MOST_FRACTION_BITS);

    __extension__ typedef unsigned __int128 Product;
    const Product product = static_cast<Product>(mantissa) * POWERS_OF_TEN[decimals];
    const Product half = static_cast<Product>(1) << (fractionBits - 1);
    const Product dropped = product & (2 * half - 1);
    const unsigned long long scaled = static_cast<unsigned long long>(product >> fractionBits);
    const bool up = dropped > half || (dropped == half && (scaled & 1) != 0);
    return scaled + (up ? 1 : 0);
}

// "00" to "99", one after the other.
constexpr std::array<char, 200> DIGIT_PAIRS = [] {
    std::array<char, 200> pairs{};
    for (size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

// The last count digits of number go just before at, which moves in front of them; number loses them.
void PrependDigits(unsigned long long& number, unsigned int count, char*& at) {
    for (; count >= 2; count -= 2, number /= 100) {
        at -= 2;
        memcpy(at, &DIGIT_PAIRS[2 * (number % 100)], 2);
    }
    if (count == 0) return;
    *--at = static_cast<char>('0' + number % 10);
    number /= 10;
}

size_t QuickFixed(double value, unsigned int decimals, char* buf) {
    unsigned long long rest = ScaledAndRounded(std::fabs(value), decimals);
    char text[NumberText::MAX_LENGTH];
    char* const end = text + sizeof(text);
    char* at = end;
    if (decimals > 0) {
        PrependDigits(rest, decimals, at);
        *--at = '.';
    }
    do {
        PrependDigits(rest, rest >= 10 ? 2 : 1, at);
    } while (rest > 0);
    if (std::signbit(value)) *--at = '-';
    const size_t length = static_cast<size_t>(end - at);
    memcpy(buf, at, length);
    buf[length] = '\0';
    return length;
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
    const bool quick = std::fabs(value) < QUICK_MAGNITUDE && decimals <= QUICK_DECIMALS;
    return quick ? QuickFixed(value, decimals, buf) : LongFixed(value, decimals, buf);
}
