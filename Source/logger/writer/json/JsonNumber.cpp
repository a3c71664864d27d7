#include "logger/writer/json/JsonNumber.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace {
const int FEW_DIGITS = 15;    // every decimal number of so many digits survives in a double
const int ALL_DIGITS = 17;    // every double survives in so many digits
const double FEW_END = 1e15;  // a whole number below has no more than the few digits

// The shortest decimal number that tells a double, the nearest one of its length: its digits, of which the last is not
// 0, with the point behind the first of them, times a power of ten.
struct Decimal {
    explicit Decimal(double number);
    bool needsAllDigits() const;  // few surely tell of another number, where it has more
    bool round(int count);        // to fewer digits; false where it lies just between two
    void carry();
    char* put(char* to, int precision) const;  // as "%.*g"
    char* putScientific(char* to) const;
    char* putFraction(char* to) const;

    char digits_[ALL_DIGITS];
    int count_ = 0;
    int exponent_ = 0;
    bool isNegative_;
};

Decimal::Decimal(double number) : isNegative_(std::signbit(number)) {
    char text[JsonNumber::LONGEST];
    const char* const end =
        std::to_chars(text, text + sizeof text, std::fabs(number), std::chars_format::scientific).ptr;
    const char* at = text;
    for (; *at != 'e'; ++at) {
        if (*at != '.') digits_[count_++] = *at;
    }
    std::from_chars(at + (at[1] == '+' ? 2 : 1), end, exponent_);
}

// What the few digits leave out is counted in units of the last of all digits. A number counts as told where it is off
// by an epsilon, which is 2.3 units at most for each that the first digit may reach; and both decimals are off by as
// much together, at most, from the doubles that they tell.
bool Decimal::needsAllDigits() const {
    const int last = count_ == ALL_DIGITS ? digits_[FEW_DIGITS + 1] - '0' : 0;
    const int rest = 10 * (digits_[FEW_DIGITS] - '0') + last;
    return std::min(rest, 100 - rest) > 5 * (digits_[0] - '0' + 1);
}

bool Decimal::round(int count) {
    const char next = digits_[count];
    if (next == '5' && count_ == count + 1) return false;
    count_ = count;
    if (next >= '5') carry();
    while (count_ > 1 && digits_[count_ - 1] == '0') --count_;
    return true;
}

void Decimal::carry() {
    int last = count_ - 1;
    while (last >= 0 && digits_[last] == '9') digits_[last--] = '0';
    if (last >= 0) {
        ++digits_[last];
    } else {
        digits_[0] = '1';
        ++exponent_;
    }
}

char* Decimal::put(char* to, int precision) const {
    if (isNegative_) *to++ = '-';
    if (exponent_ < -4 || exponent_ >= precision) return putScientific(to);
    if (exponent_ < 0) return putFraction(to);
    const int whole = std::min(count_, exponent_ + 1);
    to = std::copy_n(digits_, whole, to);
    to = std::fill_n(to, exponent_ + 1 - whole, '0');
    if (whole == count_) return to;
    *to++ = '.';
    return std::copy(digits_ + whole, digits_ + count_, to);
}

char* Decimal::putScientific(char* to) const {
    *to++ = digits_[0];
    if (count_ > 1) *to++ = '.';
    to = std::copy(digits_ + 1, digits_ + count_, to);
    *to++ = 'e';
    *to++ = exponent_ < 0 ? '-' : '+';
    const int exponent = std::abs(exponent_);
    if (exponent < 10) *to++ = '0';
    return std::to_chars(to, to + JsonNumber::LONGEST, exponent).ptr;
}

char* Decimal::putFraction(char* to) const {
    *to++ = '0';
    *to++ = '.';
    to = std::fill_n(to, -exponent_ - 1, '0');
    return std::copy_n(digits_, count_, to);
}

char* PutExactly(char* to, double number, int digits) {
    return std::to_chars(to, to + JsonNumber::LONGEST, number, std::chars_format::general, digits).ptr;
}

bool IsTold(double number, const char* text, const char* end) {
    double told = 0;
    std::from_chars(text, end, told);
    return std::fabs(told - number) <= std::max(std::fabs(told), std::fabs(number)) * DBL_EPSILON;
}

char* PutAll(char* to, double number, const Decimal& shortest) {
    return shortest.count_ == ALL_DIGITS ? shortest.put(to, ALL_DIGITS) : PutExactly(to, number, ALL_DIGITS);
}

// The number rounded to few digits is the shortest decimal rounded, for no number of few digits, nor one just between
// two, lies between them.
char* PutRounded(char* to, double number, const Decimal& shortest) {
    if (shortest.needsAllDigits()) return PutAll(to, number, shortest);
    Decimal rounded = shortest;
    char* const end = rounded.round(FEW_DIGITS) ? rounded.put(to, FEW_DIGITS) : PutExactly(to, number, FEW_DIGITS);
    if (IsTold(number, to, end)) return end;
    return PutAll(to, number, shortest);
}

// Numbers so small have fewer digits than others.
char* PutTiny(char* to, double number) {
    char* const end = PutExactly(to, number, FEW_DIGITS);
    return IsTold(number, to, end) ? end : PutExactly(to, number, ALL_DIGITS);
}
}  // namespace

char* JsonNumber::Put(char* to, double number) {
    if (!std::isfinite(number)) return std::copy_n("null", 4, to);
    if (std::fabs(number) < DBL_MIN) return PutTiny(to, number);
    if (std::fabs(number) < FEW_END && std::trunc(number) == number) {
        return std::to_chars(to, to + LONGEST, static_cast<long long>(number)).ptr;
    }
    const Decimal shortest(number);
    return shortest.count_ <= FEW_DIGITS ? shortest.put(to, FEW_DIGITS) : PutRounded(to, number, shortest);
}
