#include "logger/entry/TimeBounds.h"

#include "data/Logger.h"
#include "logger/entry/EntryStream.h"
#include "utils/TextBuffer.h"
#include "utils/Timespan.h"

bool TimeBounds::Holds(const Timestamp& t) {
    static thread_local timeval latest{0, 0};  // what the last look at the clock allowed
    if (t < Timestamp::EPOCH_START_TIME) return false;
    if (t <= Timestamp(latest)) return true;
    latest = (Timestamp::Now() + Timespan(MAX_AHEAD, 0)).getTimeval();
    return t <= Timestamp(latest);
}

void TimeBounds::LogViolation(const Logger& logger, const char* who, const Timestamp& timeBase, const InStream& in) {
    TextBuffer text;
    text.append(who).append(" timebase value of ").appendFixed(timeBase.asDouble(), 2).append(" is out of bounds.");
    logger.syslog(text.toStr(), Syslog::ERROR);
    EntryStream::LogPosition(logger, in);
}
