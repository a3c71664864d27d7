#pragma once

#include "logger/entry/LogEntry.h"
#include "utils/Timespan.h"
#include "utils/Timestamp.h"

// What is noted of the entries that decode, since damage can look like an entry: zeros are cycle starts of 1970.
class EntryNotes {
public:
    // timeAdjust: the correction in the entry's time, which does not count as a jump of the clock; INVALID_TIMESPAN:
    // none.
    void note(const LogEntry& entry, const Timespan& timeAdjust) {
        if (entry.getType() == LogEntry::DIRECTORY_LOG_ENTRY) noteRecord(entry);
        if (entry.getType() == LogEntry::EVENT_LOG_ENTRY) noteEvent(entry, timeAdjust);
    }
    void beginFile();  // cycles are counted by file

    bool hasDirectory() const { return hasDirectory_; }  // the log has named an item itself
    // Cycle starts whose time is before that of the one before, or more than an hour after it.
    unsigned int getJumps() const { return jumps_; }
    // Cycle starts at the time of the one before, which no cycle is too short for, or at the very beginning of 1970.
    unsigned int getStanding() const { return standing_; }

private:
    void noteRecord(const LogEntry& entry);
    void noteEvent(const LogEntry& entry, const Timespan& timeAdjust);
    void noteCycle(const Timestamp& t);

    bool hasDirectory_ = false;
    unsigned int jumps_ = 0;
    unsigned int standing_ = 0;
    Timestamp lastCycle_ = Timestamp::NOT_SET_TIME;  // by the vehicle's clock
};
