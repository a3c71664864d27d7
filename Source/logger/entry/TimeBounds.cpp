#include "logger/entry/TimeBounds.h"

#include "data/Logger.h"
#include "logger/entry/EntryStream.h"
#include "utils/TextBuffer.h"
#include "utils/Timespan.h"

std::atomic<time_t> TimeBounds::AllowedSeconds_{0};

bool TimeBounds::HoldsNow(timeval instant) {
    const Timestamp t(instant);
    const Timestamp latest = Timestamp::Now() + Timespan(MAX_AHEAD, 0);
    AllowedSeconds_.store(latest.getTimeval().tv_sec, std::memory_order_relaxed);
    return Timestamp::EPOCH_START_TIME <= t && t <= latest;
}

void TimeBounds::LogViolation(const Logger& logger, const char* who, const Timestamp& timeBase, const InStream& in) {
    TextBuffer text;
    text.append(who).append(" timebase value of ").appendFixed(timeBase.asDouble(), 2).append(" is out of bounds.");
    logger.syslog(text.toStr(), Syslog::ERROR);
    EntryStream::LogPosition(logger, in);
}
