#include "logger/reader/BinaryLogReader.h"

#include <memory>

#include "logger/engine/LogEngine.h"
#include "logger/entry/EventEntry.h"
#include "logger/entry/TimeBounds.h"

BinaryLogReader::BinaryLogReader(const Logger& logger, const Timestamp& start, const Timestamp& end,
                                 const Str& whileRunning, LogEngine* write, LogEngine* syslog, Log& log)
    : LogReader(log),
      gate_(logger),
      unknownRecordsBefore_(log_.getUnknownRecords()),
      sysLogger_(gate_.getLogger()),
      startTime_(start),
      endTime_(end),
      whileRunningName_(whileRunning),
      writeEngine_(write),
      syslogEngine_(syslog),
      whileRunningCode_(CodedStr::NO_CODE) {}

unsigned int BinaryLogReader::read() {
    setError(false);
    if (logStream_ == nullptr || logStream_->ended()) return 0;
    resolveMission();
    bool error = false;
    const std::unique_ptr<LogEntry> entry(readEntry(error));
    if (entry != nullptr) {
        notes_.note(*entry, timeAdjust_);
        handle(*entry);
    } else {
        countUnknownRecords();
    }
    setError(error);
    if (syslogEngine_ != nullptr) syslogEngine_->processQueue(Timespan::ZERO_TIMESPAN);
    return entry == nullptr ? 0 : 1;
}

// The next entry, owned by the caller; null for what decodes badly or to an impossible time. A GPS fix that leads to
// such a time is taken back, or it would carry the rest of the log with it.
LogEntry* BinaryLogReader::readEntry(bool& error) {
    const Timespan adjustBefore = timeAdjust_;
    std::unique_ptr<LogEntry> entry(
        LogEntry::Read(timeBase_, timeAdjust_, *logStream_, sysLogger_, error, values_, log_));
    if (entry != nullptr && !isInBounds(*entry)) {
        TimeBounds::LogViolation(sysLogger_, "LogEntry", timeBase_, *logStream_);
        timeBase_ = Timestamp::NOT_SET_TIME;
        timeAdjust_ = adjustBefore;
        error = true;
    }
    return error ? nullptr : entry.release();
}

// A directory record of unknown kind says nothing, but it is damage.
void BinaryLogReader::countUnknownRecords() {
    if (unknownRecordsBefore_ == log_.getUnknownRecords()) return;
    unknownRecordsBefore_ = log_.getUnknownRecords();
    gate_.countComplaint();
}

bool BinaryLogReader::isInBounds(const LogEntry& entry) const {
    return entry.getType() == LogEntry::DIRECTORY_LOG_ENTRY || TimeBounds::Holds(entry.getTimestamp());
}

void BinaryLogReader::resolveMission() {
    if (whileRunningName_.isEmpty() || whileRunningCode_ != CodedStr::NO_CODE) return;
    const CodedStr* mission = log_.findCodedName(whileRunningName_);
    if (mission != nullptr) whileRunningCode_ = mission->getCode();
}

const EventEntry* BinaryLogReader::asMissionMarker(const LogEntry& entry) const {
    if (whileRunningName_.isEmpty() || entry.getType() != LogEntry::EVENT_LOG_ENTRY) return nullptr;
    const EventEntry& event = static_cast<const EventEntry&>(entry);
    const bool isMarker = event.getEventType() == EventEntry::COMPONENT_ACTION &&
                          event.getComponentAction() == EventEntry::COMPONENT_MISSION_RUN &&
                          event.getActorCode() == whileRunningCode_;
    return isMarker ? &event : nullptr;
}

// The marker that starts the mission is passed on, and so is the one that stops it.
void BinaryLogReader::handle(LogEntry& entry) {
    const EventEntry* marker = asMissionMarker(entry);
    if (marker != nullptr && marker->getRunning() != 0) running_ = true;
    if (writeEngine_ != nullptr && isInWindow(entry) && (whileRunningName_.isEmpty() || running_)) passOn(entry);
    if (marker != nullptr && marker->getRunning() == 0) running_ = false;
}

bool BinaryLogReader::isInWindow(const LogEntry& entry) const {
    if (entry.getType() == LogEntry::DIRECTORY_LOG_ENTRY) return true;
    const Timestamp& t = entry.getTimestamp();
    return (!startTime_.isSet() || t >= startTime_) && (!endTime_.isSet() || t <= endTime_);
}

void BinaryLogReader::passOn(LogEntry& entry) {
    if (entry.getType() != LogEntry::DIRECTORY_LOG_ENTRY) noteTime(entry);
    writeEngine_->processEntry(&entry);
}

void BinaryLogReader::noteTime(const LogEntry& entry) {
    const bool isFirst = !firstTime_.isSet() && timeBase_.isSet();
    if (isFirst) firstTime_ = entry.getTimestamp();
    lastTime_ = entry.getTimestamp();
}
