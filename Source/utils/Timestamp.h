#pragma once

#include <sys/time.h>

#include <ctime>

#include "utils/Str.h"

class Timespan;

// An instant: seconds and microseconds since 1970-01-01T00:00:00Z, always UTC. After arithmetic the microseconds lie
// in 0 .. 999999, also for an instant before 1970.
class Timestamp {
public:
    static const Timestamp NOT_SET_TIME;      // the marker of an unset time, an instant in December 1968
    static const Timestamp EPOCH_START_TIME;  // 1970-01-01T00:00:00Z
    static constexpr int TEXT_ROOM = 32;      // bytes that hold every text form of an instant

    constexpr Timestamp() : timeval_{0, 0} {}
    constexpr Timestamp(int seconds, unsigned int microseconds) : timeval_{seconds, microseconds} {}
    Timestamp(int year, int month, int day, int hour, int minute, int second);  // month 1 to 12
    explicit constexpr Timestamp(const timeval& t) : timeval_(t) {}
    explicit Timestamp(double seconds) { fromDouble(seconds); }
    explicit Timestamp(const char* text) { fromString(text); }
    Timestamp(const Timestamp& other) = default;
    virtual ~Timestamp() = default;

    virtual double asDouble() const;  // seconds
    virtual double asFloat() const;   // seconds computed in single precision: about two minutes of resolution today

    Timestamp& operator=(const Timestamp& other) = default;
    Timestamp& operator=(const timeval& t);
    Timestamp& operator=(double seconds);

    // The packed forms of the log. Compact micros: seconds << 20 | microseconds. Compact millis:
    // seconds << 10 | units of 1,024 microseconds.
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
    void fromDouble(double seconds);    // to the microsecond; NaN and what does not fit give NOT_SET_TIME
    void fromString(const char* text);  // unparsable: NOT_SET_TIME
    void fromTimespec(const timespec& t);

    long long asMicros() const;  // plain microseconds
    long long asMillis() const;  // plain milliseconds, truncated
    time_t asTimeT() const { return timeval_.tv_sec; }
    struct tm asStructTm() const;  // UTC
    const timeval& getTimeval() const { return timeval_; }
    void toTimespec(timespec* t) const;  // null is ignored

    Timestamp& operator+=(const Timespan& span);
    Timestamp& operator-=(const Timespan& span);
    Timestamp operator+(const Timespan& span) const;
    Timestamp operator-(const Timespan& span) const;
    Timespan operator-(const Timestamp& other) const;
    Timespan operator-(const timeval& other) const;

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
    void setToMonoTime();
    static Timestamp Now();
    static Timespan SetNow(const Timestamp& t);  // shifts the process's clock; the new offset. Call once, at start-up
    Timespan elapsed() const;                    // Now() minus this
    void sleepTill() const;
    void round(int n);  // to a multiple of n seconds; more than 500 microseconds count as one more

    // "2012-06-01T12:30:00.410Z", cut to size; decimals at most 6, none at 0. The result is buf.
    char* toString(char* buf, int size, int decimals) const;
    Str toString(int decimals) const;
    long printedFraction(int decimals) const;  // what stands behind the point there, as a number; decimals 1 to 6
    Str toSmallString() const;                 // 20120601T123000
    Str toSmallerString() const;               // 201206011230
    Str toDateHourString() const;              // 2012060112

protected:
    static constexpr long MICROS_PER_SECOND = 1000000;
    static constexpr int COMPACT_MICROS_BITS = 20;  // of the microseconds in the packed form
    static constexpr int COMPACT_MILLIS_BITS = 10;  // of the units of 1,024 microseconds in the packed form

    // Seconds wrap around instead of overflowing: a log can name any instant at all.
    void add(const timeval& t) {
        timeval_.tv_sec =
            static_cast<time_t>(static_cast<unsigned long>(timeval_.tv_sec) + static_cast<unsigned long>(t.tv_sec));
        timeval_.tv_usec += t.tv_usec;
        if (timeval_.tv_usec < 0 || timeval_.tv_usec >= MICROS_PER_SECOND) normalise();
    }
    void subtract(const timeval& t);

    timeval timeval_;

private:
    void normalise();  // brings the microseconds into 0 .. 999999

    static Timespan TimeOffset_;  // added to the system clock by setToCurrentTime
};
