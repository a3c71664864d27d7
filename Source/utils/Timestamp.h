#pragma once

#include <sys/time.h>

#include <ctime>

#include "utils/Str.h"

class Timespan;

// An instant: seconds and microseconds since 1970-01-01T00:00:00Z, always UTC. After arithmetic the microseconds lie
// in 0 .. 999999, also for an instant before 1970; parts that are given are taken as they stand. Seconds that do not
// fit wrap around, since a damaged log can name any instant at all.
// Threads: an instant is a plain value; only the process's clock offset is shared (SetNow).
class Timestamp {
public:
    static const Timestamp NOT_SET_TIME;      // the marker of an unset time, an instant in December 1968
    static const Timestamp EPOCH_START_TIME;  // 1970-01-01T00:00:00Z
    static constexpr int TEXT_ROOM = 32;      // bytes that hold every text form of an instant

    constexpr Timestamp() : timeval_{0, 0} {}  // EPOCH_START_TIME
    constexpr Timestamp(int seconds, unsigned int microseconds) : timeval_{seconds, microseconds} {}
    // month 1 to 12; what lies outside its range carries over, so that day 32 is in the next month.
    Timestamp(int year, int month, int day, int hour, int minute, int second);
    explicit constexpr Timestamp(const timeval& t) : timeval_(t) {}
    explicit Timestamp(double seconds) { fromDouble(seconds); }  // NOT_SET_TIME for NaN
    explicit Timestamp(const char* text) { fromString(text); }   // NOT_SET_TIME when unparsable
    Timestamp(const Timestamp& other) = default;
    virtual ~Timestamp() = default;

    bool isSet() const { return *this != NOT_SET_TIME; }
    virtual double asDouble() const;  // seconds, today to about a quarter of a microsecond
    virtual double asFloat() const;   // seconds computed in single precision: about two minutes of resolution today

    Timestamp& operator=(const Timestamp& other) = default;
    Timestamp& operator=(const timeval& t);
    Timestamp& operator=(double seconds);  // as fromDouble

    // The packed forms of the log. Compact micros: seconds << 20 | microseconds. Compact millis: seconds << 10 |
    // microseconds / 1024, rounded; the fraction so counts from 0 to 977. Unpacking takes the low bits as they stand,
    // also where they make a second or more; adding normalises.
    static Timestamp FromMicros(long long compactMicros);
    static Timestamp FromMillis(long long compactMillis);
    static timeval TimevalFromMicros(long long compactMicros) {
        return {compactMicros >> COMPACT_MICROS_BITS, compactMicros & ((1 << COMPACT_MICROS_BITS) - 1)};
    }
    static timeval TimevalFromMillis(long long compactMillis) {
        return {compactMillis >> COMPACT_MILLIS_BITS, (compactMillis & ((1 << COMPACT_MILLIS_BITS) - 1))
                                                          << COMPACT_MILLIS_BITS};
    }
    static timeval TimevalFromIntegers(int seconds, unsigned int microseconds);
    void addFromMicros(long long compactMicros) { add(TimevalFromMicros(compactMicros)); }
    void addFromMillis(long long compactMillis) { add(TimevalFromMillis(compactMillis)); }
    long long asCompactMicros() const;
    long long asCompactMillis() const;

    void fromIntegers(int seconds, unsigned int microseconds);
    // To the nearest microsecond, before 1970 perhaps one below; NaN and what does not fit give NOT_SET_TIME.
    void fromDouble(double seconds);
    // A date ("2012-06-01", "2012/06/01", "06-01-2012", "06/01/2012" or "20120601"), then 'T', a blank or nothing, then
    // a time ("12:30:00" or "123000") with or without decimals: "2012-06-01T12:30:00.25". What follows is ignored, a
    // zone too. NOT_SET_TIME for null and anything else, such as a date without a time.
    void fromString(const char* text);
    void fromTimespec(const timespec& t);  // cut to whole microseconds

    long long asMicros() const;                         // plain microseconds
    long long asMillis() const;                         // plain milliseconds, truncated
    time_t asTimeT() const { return timeval_.tv_sec; }  // whole seconds, the microseconds cut off
    struct tm asStructTm() const;                       // UTC; all zeros when the year does not fit an int
    const timeval& getTimeval() const { return timeval_; }
    void toTimespec(timespec* t) const;  // null is ignored

    // In whole microseconds; the difference of two instants is negative when the other is the later one.
    Timestamp& operator+=(const Timespan& span);
    Timestamp& operator-=(const Timespan& span);
    Timestamp operator+(const Timespan& span) const;
    Timestamp operator-(const Timespan& span) const;
    Timespan operator-(const Timestamp& other) const;
    Timespan operator-(const timeval& other) const;

    // By seconds, then microseconds. NOT_SET_TIME is an instant like any other here, before all of 1969 and later.
    bool operator==(const Timestamp& o) const {
        return timeval_.tv_sec == o.timeval_.tv_sec && timeval_.tv_usec == o.timeval_.tv_usec;
    }
    bool operator!=(const Timestamp& o) const { return !(*this == o); }
    bool operator<(const Timestamp& o) const {
        return timeval_.tv_sec != o.timeval_.tv_sec ? timeval_.tv_sec < o.timeval_.tv_sec
                                                    : timeval_.tv_usec < o.timeval_.tv_usec;
    }
    bool operator<=(const Timestamp& o) const { return !(o < *this); }
    bool operator>(const Timestamp& o) const { return o < *this; }
    bool operator>=(const Timestamp& o) const { return !(*this < o); }

    void setToRealCurrentTime();  // the system clock
    void setToCurrentTime();      // the system clock plus the process's offset
    void setToMonoTime();         // the monotonic clock, for differences alone: its start says nothing
    static Timestamp Now();       // as setToCurrentTime
    // Shifts the process's clock so that it reads t now; the new offset. Not locked: call once, at start-up.
    static Timespan SetNow(const Timestamp& t);
    Timespan elapsed() const;  // Now() minus this
    void sleepTill() const;    // blocks the thread until Now() has come that far; at once when it has
    // To the nearest multiple of n seconds since 1970, halves up, before 1970 perhaps to the one after it; more than
    // 500 microseconds count as one more second. Unchanged for n <= 0.
    void round(int n);

    // "2012-06-01T12:30:00.410Z", cut to size, NUL included; decimals at most 6, none at 0. The fraction is rounded
    // without a carry: 999999 microseconds with 3 decimals are ".000" of the same second. Where the date does not fit
    // there, or its year no int, the text begins with the point. The result is buf.
    char* toString(char* buf, int size, int decimals) const;
    Str toString(int decimals) const;
    long printedFraction(int decimals) const;  // what stands behind the point there, as a number; decimals 1 to 6
    // Each is empty for a year that it has no room for.
    Str toSmallString() const;     // 20120601T123000
    Str toSmallerString() const;   // 201206011230
    Str toDateHourString() const;  // 2012060112

protected:
    static constexpr long MICROS_PER_SECOND = 1000000;
    static constexpr int COMPACT_MICROS_BITS = 20;  // of the microseconds in the packed form
    static constexpr int COMPACT_MILLIS_BITS = 10;  // of the microseconds / 1024 in the packed form

    // Seconds wrap around instead of overflowing: a log can name any instant at all.
    void add(const timeval& t) {
        const auto seconds = static_cast<unsigned long>(timeval_.tv_sec) + static_cast<unsigned long>(t.tv_sec);
        timeval sum = {static_cast<time_t>(seconds), timeval_.tv_usec + t.tv_usec};
        if (sum.tv_usec < 0 || sum.tv_usec >= MICROS_PER_SECOND) sum = Normalised(sum);
        timeval_ = sum;
    }
    void subtract(const timeval& t);

    timeval timeval_;

private:
    static timeval Normalised(timeval t);  // with the microseconds in 0 .. 999999

    static Timespan TimeOffset_;  // added to the system clock by setToCurrentTime
};
