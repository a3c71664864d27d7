#include "utils/Timestamp.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "utils/Timespan.h"

namespace {

const long SECONDS_PER_DAY = 86400;
const int MAX_DECIMALS = 6;
const double OUT_OF_RANGE_SECONDS = 9.2e18;  // what does not fit 64 bits, with a margin for rounding

// A log can name any instant at all, so sums and products of seconds wrap around instead of overflowing.
time_t WrappingSum(time_t a, time_t b) {
    return static_cast<time_t>(static_cast<uint64_t>(a) + static_cast<uint64_t>(b));
}
time_t WrappingDifference(time_t a, time_t b) {
    return static_cast<time_t>(static_cast<uint64_t>(a) - static_cast<uint64_t>(b));
}
time_t WrappingProduct(time_t a, time_t b) {
    return static_cast<time_t>(static_cast<uint64_t>(a) * static_cast<uint64_t>(b));
}

long FloorDivide(long a, long b) {
    return a / b - (a % b < 0);
}

// The text of the current day. Entries come in time order, so that almost all of them find their day here.
struct DayText {
    long day_;       // since 1970
    size_t length_;  // 0: the year cannot be told
    char text_[24];  // "2012-06-01T"
};
thread_local DayText CurrentDay = {0, 11, "1970-01-01T"};

const DayText& DayTextOf(time_t seconds) {
    const long day = FloorDivide(seconds, SECONDS_PER_DAY);
    if (day == CurrentDay.day_) return CurrentDay;
    struct tm t;
    CurrentDay.day_ = day;
    CurrentDay.length_ =
        gmtime_r(&seconds, &t) == nullptr ? 0 : strftime(CurrentDay.text_, sizeof CurrentDay.text_, "%Y-%m-%dT", &t);
    return CurrentDay;
}

// So many digits of a number that has no more; the place after them.
char* PutDigits(char* to, long number, int digits) {
    for (int i = digits - 1; i >= 0; --i, number /= 10) to[i] = static_cast<char>('0' + number % 10);
    return to + digits;
}

const size_t CLOCK_LENGTH = 8;  // "12:30:00"

char* PutClock(char* to, long secondOfDay) {
    to = PutDigits(to, secondOfDay / 3600, 2);
    *to++ = ':';
    to = PutDigits(to, secondOfDay / 60 % 60, 2);
    *to++ = ':';
    return PutDigits(to, secondOfDay % 60, 2);
}

const char* DateLayout(const char* text) {
    const char fifth = strlen(text) > 3 ? text[4] : '\0';
    if (strchr(text, '-') != nullptr) return fifth == '-' || fifth == '/' ? "%Y-%m-%d" : "%m-%d-%Y";
    if (strchr(text, '/') != nullptr) return fifth == '/' ? "%Y/%m/%d" : "%m/%d/%Y";
    return "%Y%m%d";
}

const char* SeparatorLayout(const char* text) {
    if (strchr(text, 'T') != nullptr) return "T";
    return strchr(text, ' ') != nullptr ? " " : "";
}

const char* ClockLayout(const char* text) {
    return strchr(text, ':') != nullptr ? "%H:%M:%S" : "%H%M%S";
}

// The microseconds of ".25" and whatever follows; digits past the sixth add nothing.
long MicrosOfFraction(const char* text) {
    long microseconds = 0;
    if (*text != '.') return 0;
    for (long weight = 100000; *++text >= '0' && *text <= '9'; weight /= 10) {
        microseconds += (*text - '0') * weight;
    }
    return microseconds;
}

// Empty when the text does not fit the room, terminator included, or the year cannot be told.
Str Formatted(const Timestamp& time, const char* format, size_t room) {
    char text[Timestamp::TEXT_ROOM];
    struct tm t;
    if (gmtime_r(&time.getTimeval().tv_sec, &t) == nullptr) return Str();
    return Str(text, strftime(text, std::min(room, sizeof text), format, &t));
}

}  // namespace

const Timestamp Timestamp::NOT_SET_TIME(-32445541, 999999);  // what fromDouble makes of -32445540
const Timestamp Timestamp::EPOCH_START_TIME(0, 0);
Timespan Timestamp::TimeOffset_;

Timestamp::Timestamp(int year, int month, int day, int hour, int minute, int second) : timeval_{0, 0} {
    struct tm t = {};
    t.tm_year = year - 1900;
    t.tm_mon = month - 1;
    t.tm_mday = day;
    t.tm_hour = hour;
    t.tm_min = minute;
    t.tm_sec = second;
    timeval_.tv_sec = timegm(&t);
}

double Timestamp::asDouble() const {
    return static_cast<double>(timeval_.tv_usec) / 1e6 + static_cast<double>(timeval_.tv_sec);
}

double Timestamp::asFloat() const {
    return static_cast<float>(timeval_.tv_sec) + static_cast<float>(timeval_.tv_usec) / 1e6f;
}

Timestamp& Timestamp::operator=(const timeval& t) {
    timeval_ = t;
    return *this;
}

Timestamp& Timestamp::operator=(double seconds) {
    fromDouble(seconds);
    return *this;
}

timeval Timestamp::TimevalFromIntegers(int seconds, unsigned int microseconds) {
    return {seconds, microseconds};
}

Timestamp Timestamp::FromMicros(long long compactMicros) {
    return Timestamp(TimevalFromMicros(compactMicros));
}

Timestamp Timestamp::FromMillis(long long compactMillis) {
    return Timestamp(TimevalFromMillis(compactMillis));
}

long long Timestamp::asCompactMicros() const {
    return WrappingSum(WrappingProduct(timeval_.tv_sec, 1L << COMPACT_MICROS_BITS), timeval_.tv_usec);
}

long long Timestamp::asCompactMillis() const {
    const long rounding = timeval_.tv_usec >> (COMPACT_MILLIS_BITS - 1) & 1;
    return WrappingSum(WrappingProduct(timeval_.tv_sec, 1L << COMPACT_MILLIS_BITS),
                       (timeval_.tv_usec >> COMPACT_MILLIS_BITS) + rounding);
}

void Timestamp::fromIntegers(int seconds, unsigned int microseconds) {
    timeval_ = TimevalFromIntegers(seconds, microseconds);
}

// Works on the fraction plus one second, so that the microseconds come out from 0 to 999999 on either side of 1970.
void Timestamp::fromDouble(double seconds) {
    if (!(std::fabs(seconds) < OUT_OF_RANGE_SECONDS)) {
        timeval_ = NOT_SET_TIME.timeval_;
        return;
    }
    const double halfMicro = seconds >= 0 ? 5e-7 : -5e-7;
    const double fraction = seconds - std::trunc(seconds) + halfMicro;
    const long micros = static_cast<long>(fraction * 1e6 + 1e6);
    const long carry = micros / MICROS_PER_SECOND;
    timeval_ = {static_cast<time_t>(static_cast<double>(carry) + seconds - 1.0), micros % MICROS_PER_SECOND};
}

void Timestamp::fromString(const char* text) {
    timeval_ = NOT_SET_TIME.timeval_;
    if (text == nullptr) return;
    char format[18];
    snprintf(format, sizeof format, "%s%s%s", DateLayout(text), SeparatorLayout(text), ClockLayout(text));
    struct tm t = {};
    const char* rest = strptime(text, format, &t);
    if (rest != nullptr) timeval_ = {timegm(&t), MicrosOfFraction(rest)};
}

void Timestamp::fromTimespec(const timespec& t) {
    timeval_ = {t.tv_sec, t.tv_nsec / 1000};
}

long long Timestamp::asMicros() const {
    return WrappingSum(WrappingProduct(timeval_.tv_sec, MICROS_PER_SECOND), timeval_.tv_usec);
}

long long Timestamp::asMillis() const {
    return WrappingSum(WrappingProduct(timeval_.tv_sec, 1000), timeval_.tv_usec / 1000);
}

struct tm Timestamp::asStructTm() const {
    struct tm t = {};
    gmtime_r(&timeval_.tv_sec, &t);
    return t;
}

void Timestamp::toTimespec(timespec* t) const {
    if (t != nullptr) *t = {timeval_.tv_sec, timeval_.tv_usec * 1000};
}

timeval Timestamp::Normalised(timeval t) {
    const long carry = FloorDivide(t.tv_usec, MICROS_PER_SECOND);
    return {WrappingSum(t.tv_sec, carry), t.tv_usec - carry * MICROS_PER_SECOND};
}

void Timestamp::subtract(const timeval& t) {
    timeval_ = Normalised({WrappingDifference(timeval_.tv_sec, t.tv_sec), timeval_.tv_usec - t.tv_usec});
}

Timestamp& Timestamp::operator+=(const Timespan& span) {
    add(span.timeval_);
    return *this;
}

Timestamp& Timestamp::operator-=(const Timespan& span) {
    subtract(span.timeval_);
    return *this;
}

Timestamp Timestamp::operator+(const Timespan& span) const {
    return Timestamp(*this) += span;
}

Timestamp Timestamp::operator-(const Timespan& span) const {
    return Timestamp(*this) -= span;
}

Timespan Timestamp::operator-(const Timestamp& other) const {
    return *this - other.timeval_;
}

Timespan Timestamp::operator-(const timeval& other) const {
    return Timespan(timeval_) -= other;
}

void Timestamp::setToRealCurrentTime() {
    gettimeofday(&timeval_, nullptr);
}

void Timestamp::setToCurrentTime() {
    setToRealCurrentTime();
    *this += TimeOffset_;
}

void Timestamp::setToMonoTime() {
    timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    fromTimespec(t);
}

Timestamp Timestamp::Now() {
    Timestamp now;
    now.setToCurrentTime();
    return now;
}

Timespan Timestamp::SetNow(const Timestamp& t) {
    Timestamp real;
    real.setToRealCurrentTime();
    return TimeOffset_ = t - real;
}

Timespan Timestamp::elapsed() const {
    return Now() - *this;
}

void Timestamp::sleepTill() const {
    (*this - Now()).sleepFor();
}

void Timestamp::round(int n) {
    if (n <= 0) return;
    const time_t seconds = WrappingSum(timeval_.tv_sec, timeval_.tv_usec > 500);
    timeval_ = {WrappingSum(seconds, n / 2) / n * n, 0};
}

char* Timestamp::toString(char* buf, int size, int decimals) const {
    if (size <= 0) return buf;
    decimals = std::min(std::max(decimals, 0), MAX_DECIMALS);
    char text[sizeof DayText::text_ + CLOCK_LENGTH + 1 + MAX_DECIMALS + 1];
    char* end = text;
    const DayText& day = DayTextOf(timeval_.tv_sec);
    const bool dateFits = day.length_ > 0 && static_cast<int>(day.length_ + CLOCK_LENGTH) < size - 1 - decimals;
    if (dateFits) {
        memcpy(end, day.text_, day.length_);
        end = PutClock(end + day.length_, timeval_.tv_sec - day.day_ * SECONDS_PER_DAY);
    }
    if (decimals > 0) {
        *end++ = '.';
        end = PutDigits(end, printedFraction(decimals), decimals);
    }
    *end++ = 'Z';
    const size_t length = std::min(static_cast<size_t>(end - text), static_cast<size_t>(size) - 1);
    memcpy(buf, text, length);
    buf[length] = '\0';
    return buf;
}

// The digits that "%.*f" prints of the fraction in single precision; a fraction that rounds up to one gives zeros. A
// single precision number times at most 1e6 is exact in double precision, hence rounded as printing does.
long Timestamp::printedFraction(int decimals) const {
    static const long POWERS[MAX_DECIMALS + 1] = {1, 10, 100, 1000, 10000, 100000, 1000000};
    const float fraction = static_cast<float>(timeval_.tv_usec) / 1e6f;
    const double scaled = std::fabs(static_cast<double>(fraction)) * static_cast<double>(POWERS[decimals]);
    const long digits = std::lrint(scaled);
    return digits == POWERS[decimals] ? 0 : digits;
}

Str Timestamp::toString(int decimals) const {
    char text[TEXT_ROOM];
    return Str(toString(text, sizeof text, decimals));
}

Str Timestamp::toSmallString() const {
    return Formatted(*this, "%Y%m%dT%H%M%S", 16);
}

Str Timestamp::toSmallerString() const {
    return Formatted(*this, "%Y%m%d%H%M", 16);
}

Str Timestamp::toDateHourString() const {
    return Formatted(*this, "%Y%m%d%H", 14);
}
