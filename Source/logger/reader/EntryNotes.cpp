#include "logger/reader/EntryNotes.h"

#include "logger/entry/DirectoryEntry.h"
#include "logger/entry/EventEntry.h"

static const Timespan LONGEST_CYCLE(3600, 0);

void EntryNotes::beginFile() {
    jumps_ = standing_ = 0;
    lastCycle_ = Timestamp::NOT_SET_TIME;
}

void EntryNotes::noteRecord(const LogEntry& entry) {
    const DirectoryEntry& record = static_cast<const DirectoryEntry&>(entry);
    if (record.getDirectoryType() != DirectoryEntry::VERSION) hasDirectory_ = true;
}

void EntryNotes::noteEvent(const LogEntry& entry, const Timespan& timeAdjust) {
    if (!static_cast<const EventEntry&>(entry).isCycleStart()) return;
    const bool isAdjusted = timeAdjust != Timespan::INVALID_TIMESPAN;
    noteCycle(isAdjusted ? entry.getTimestamp() - timeAdjust : entry.getTimestamp());
}

void EntryNotes::noteCycle(const Timestamp& t) {
    const bool isFirst = !lastCycle_.isSet();
    if (t == lastCycle_ || t == Timestamp::EPOCH_START_TIME) ++standing_;
    if (!isFirst && (t < lastCycle_ || t > lastCycle_ + LONGEST_CYCLE)) ++jumps_;
    lastCycle_ = t;
}
