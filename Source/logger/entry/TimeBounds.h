#pragma once

#include <atomic>

#include "utils/Timestamp.h"

class InStream;
class Logger;

// What an entry time can be: not before 1970 and not more than about a month ahead of the clock.
class TimeBounds {
public:
    static constexpr int MAX_AHEAD = 2628000;  // seconds

    // The clock is read only for a time that lies past what an earlier look allowed.
    static bool Holds(const Timestamp& t) {
        const time_t seconds = t.getTimeval().tv_sec;
        return (seconds >= 0 && seconds < AllowedSeconds_.load(std::memory_order_relaxed)) || HoldsNow(t.getTimeval());
    }
    // Logs that a time base read by `who` is impossible, and where the stream stands.
    static void LogViolation(const Logger& logger, const char* who, const Timestamp& timeBase, const InStream& in);

private:
    static bool HoldsNow(timeval instant);  // by its value, which a register holds

    static std::atomic<time_t> AllowedSeconds_;  // whole seconds that the last look at the clock allowed
};
