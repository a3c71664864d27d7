#include "utils/Timespan.h"

#include <sched.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <limits>

namespace {

const int FRACTION_DIGITS = 6;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// A number of digits with at most one decimal point, 0 when there is none; text moves past it.
double TakeNumber(const char*& text) {
    double number = 0;
    while (IsDigit(*text)) number = number * 10 + (*text++ - '0');
    if (*text != '.') return number;
    double weight = 0.1;
    for (++text; IsDigit(*text); ++text, weight /= 10) number += (*text - '0') * weight;
    return number;
}

// The seconds in one of the unit; 0 for a letter that is no unit.
int SecondsIn(char unit) {
    switch (unit) {
        case 'D':
            return 86400;
        case 'H':
            return 3600;
        case 'M':
            return 60;
        case 'S':
            return 1;
        default:
            return 0;
    }
}

}  // namespace

const Timespan Timespan::INVALID_TIMESPAN(-2147483647, 1000001);
const Timespan Timespan::ZERO_TIMESPAN(0, 0);

Timespan Timespan::Seconds(double n) {
    return Timespan(n);
}

Timespan Timespan::Milliseconds(float n) {
    return Timespan(static_cast<double>(n) / 1000);
}

Timespan Timespan::Minutes(int n) {
    return Timespan(timeval{n * 60L, 0});
}

Timespan Timespan::Hours(int n) {
    return Timespan(timeval{n * 3600L, 0});
}

Timespan Timespan::Days(int n) {
    return Timespan(timeval{n * 86400L, 0});
}

double Timespan::asDouble() const {
    return *this == INVALID_TIMESPAN ? std::numeric_limits<double>::quiet_NaN() : Timestamp::asDouble();
}

double Timespan::asFloat() const {
    return *this == INVALID_TIMESPAN ? std::numeric_limits<double>::quiet_NaN() : Timestamp::asFloat();
}

Timespan& Timespan::operator+=(const Timespan& span) {
    return *this += span.timeval_;
}

Timespan& Timespan::operator-=(const Timespan& span) {
    return *this -= span.timeval_;
}

Timespan& Timespan::operator+=(const timeval& span) {
    add(span);
    return *this;
}

Timespan& Timespan::operator-=(const timeval& span) {
    subtract(span);
    return *this;
}

Timespan Timespan::operator+(const Timespan& span) const {
    return Timespan(*this) += span;
}

Timespan Timespan::operator-(const Timespan& span) const {
    return Timespan(*this) -= span;
}

void Timespan::sleepFor() const {
    timespec left;
    toTimespec(&left);
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

// For spans that are too short for the scheduler: gives the processor away, but never goes to sleep.
void Timespan::sleepFast() const {
    Timestamp now;
    now.setToMonoTime();
    for (const Timestamp end = now + *this; now < end; now.setToMonoTime()) sched_yield();
}

char* Timespan::toString(char* buf, int size, int decimals) const {
    if (size <= 0) return buf;
    if (decimals <= 0) {
        snprintf(buf, static_cast<size_t>(size), "%ld", timeval_.tv_sec);
        return buf;
    }
    const int length = snprintf(buf, static_cast<size_t>(size), "%ld.%06ld", timeval_.tv_sec, timeval_.tv_usec);
    const int kept = length - FRACTION_DIGITS + 1 + std::min(decimals, FRACTION_DIGITS);
    if (kept < size) buf[kept] = '\0';
    return buf;
}

Str Timespan::toString(int decimals) const {
    char text[TEXT_ROOM];
    return Str(toString(text, sizeof text, decimals));
}

bool Timespan::setDuration(const char* text) {
    if (text == nullptr || *text != 'P') return false;
    double total = 0;
    for (++text; *text != '\0'; ++text) {
        const double number = TakeNumber(text);
        const int seconds = SecondsIn(*text);
        const bool endsHere = *text == ' ' || *text == '\0';
        if (seconds == 0 && !(endsHere && number == 0)) return false;
        total += number * seconds;
        if (*text == '\0') break;
    }
    const Timespan span(total);
    if (!span.isSet()) return false;  // too long to be held
    *this = span;
    return true;
}
