#pragma once

#include "utils/Timestamp.h"

// A duration, held as an instant is: minus half a second is -1 s and 500000 microseconds.
class Timespan : public Timestamp {
public:
    static const Timespan INVALID_TIMESPAN;  // not normalised, so that no computed span equals it
    static const Timespan ZERO_TIMESPAN;

    constexpr Timespan() = default;
    constexpr Timespan(int seconds, unsigned int microseconds) : Timestamp(seconds, microseconds) {}
    explicit constexpr Timespan(const timeval& t) : Timestamp(t) {}
    explicit Timespan(double seconds) : Timestamp(seconds) {}  // NaN and what does not fit: equal to NOT_SET_TIME

    static Timespan Seconds(double n);      // as the constructor
    static Timespan Milliseconds(float n);  // with the seven digits of a float
    static Timespan Minutes(int n);
    static Timespan Hours(int n);
    static Timespan Days(int n);

    double asDouble() const override;  // seconds; NaN for INVALID_TIMESPAN
    double asFloat() const override;   // likewise, computed in single precision

    // INVALID_TIMESPAN takes part as what it holds: check for it first.
    Timespan& operator+=(const Timespan& span);
    Timespan& operator-=(const Timespan& span);
    Timespan& operator+=(const timeval& span);
    Timespan& operator-=(const timeval& span);
    Timespan operator+(const Timespan& span) const;
    Timespan operator-(const Timespan& span) const;

    // Both block the thread, and return at once for a negative span.
    void sleepFor() const;  // signals do not shorten it
    void sleepFast()
        const;  // without going to sleep, for what is too short for the scheduler; keeps the processor busy

    // "1.5000": keeps one fraction digit more than decimals, except that 6 keep 6; 0 gives whole seconds. The parts are
    // printed as they are held: minus half a second is "-1.5000". Cut to size, NUL included; the result is buf.
    char* toString(char* buf, int size, int decimals) const;
    Str toString(int decimals) const;
    // "P1D12H30M1.5S", without the T designator, M being minutes; false, and the span unchanged, for null and anything
    // else. A number without a unit is an error unless it is 0.
    bool setDuration(const char* text);
};
