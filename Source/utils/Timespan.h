#pragma once

#include "utils/Timestamp.h"

// A duration, held as an instant is.
class Timespan : public Timestamp {
public:
    static const Timespan INVALID_TIMESPAN;  // not normalised, so that no computed span equals it
    static const Timespan ZERO_TIMESPAN;

    constexpr Timespan() = default;
    constexpr Timespan(int seconds, unsigned int microseconds) : Timestamp(seconds, microseconds) {}
    explicit constexpr Timespan(const timeval& t) : Timestamp(t) {}
    explicit Timespan(double seconds) : Timestamp(seconds) {}

    static Timespan Seconds(double n);
    static Timespan Milliseconds(float n);
    static Timespan Minutes(int n);
    static Timespan Hours(int n);
    static Timespan Days(int n);

    double asDouble() const override;  // seconds; NaN for INVALID_TIMESPAN
    double asFloat() const override;

    Timespan& operator+=(const Timespan& span);
    Timespan& operator-=(const Timespan& span);
    Timespan& operator+=(const timeval& span);
    Timespan& operator-=(const timeval& span);
    Timespan operator+(const Timespan& span) const;
    Timespan operator-(const Timespan& span) const;

    void sleepFor() const;
    void sleepFast() const;

    // "1.5000": keeps one fraction digit more than decimals, except that 6 keep 6; 0 gives whole seconds.
    char* toString(char* buf, int size, int decimals) const;
    Str toString(int decimals) const;
    // "P1D12H30M1.5S", without the T designator; false, and the span unchanged, for anything else.
    bool setDuration(const char* text);
};
