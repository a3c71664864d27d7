#include "logger/reader/BinaryLogReader.h"

#include <memory>

#include "logger/engine/LogEngine.h"
#include "logger/entry/EventEntry.h"
#include "logger/entry/TimeBounds.h"
#include "utils/MemoryReserve.h"

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
    if (logStream_ == nullptr || logStream_->eof()) return 0;
    resolveMission();
    bool error = false;
    const std::unique_ptr<LogEntry> entry(readEntry(error));
    if (entry != nullptr) {
        notes_.note(*entry, timeAdjust_);
        handle(*entry);
        meetAccess(*entry);
    } else {
        countUnknownRecords();
    }
    setError(error);
    if (syslogEngine_ != nullptr) syslogEngine_->processQueue(Timespan::ZERO_TIMESPAN);
    return entry == nullptr ? 0 : 1;
}

unsigned int BinaryLogReader::readRun() {
    if (logStream_ == nullptr) return 0;
    const unsigned int n = values_ == LogEntry::STORE_VALUES ? readData() : stepOverData();
    if (n == 0) return read();
    setError(false);
    return n;
}

// Takes entries where they lie, one behind the other, as long as one can be taken. All of it is to be inline: a cursor
// that is passed on by its address lives in memory, and each entry waits for the end of the one before.
template <typename TakeOne>
static unsigned int TakeRun(InStream& in, TakeOne takeOne) {
    InStream::Loan loan(in);
    ByteCursor from = loan.bytes();
    unsigned int n = 0;
    for (; takeOne(from); ++n) loan.keepUpTo(from);
    return n;
}

unsigned int BinaryLogReader::readData() {
    const bool passesAll = this->passesAll();
    const unsigned int n = TakeRun(*logStream_, [this, passesAll](ByteCursor& from) {
        if (MemoryReserve::WasTaken() || !takeData(from)) return false;
        if (passesAll) {
            process(dataEntry_);
        } else {
            offer(dataEntry_);
        }
        return true;
    });
    if (passesAll && n > 0) lastTime_ = dataEntry_.getTimestamp();
    return n;
}

// Of an entry that is passed on nothing is to be noted but its time as the last one.
bool BinaryLogReader::passesAll() const {
    const bool hasWindow = startTime_.isSet() || endTime_.isSet();
    return writeEngine_ != nullptr && !hasWindow && whileRunningName_.isEmpty() && firstTime_.isSet();
}

inline bool BinaryLogReader::takeData(ByteCursor& from) {
    unsigned short header = 0;
    const KnownAccess* const access = takeHeader(header, from);
    return access != nullptr && dataEntry_.take(*access, header, from, timeBase_);
}

unsigned int BinaryLogReader::stepOverData() {
    const bool timesHaveFlag = log_.version().timesHaveFlag();
    return TakeRun(*logStream_, [this, timesHaveFlag](ByteCursor& from) {
        unsigned short header = 0;
        const KnownAccess* const access = takeHeader(header, from);
        return access != nullptr && access->stepOver(from, timeBase_, timesHaveFlag);
    });
}

// The access of the data entry that begins there; null where none begins or it is not known.
inline const KnownAccess* BinaryLogReader::takeHeader(unsigned short& header, ByteCursor& from) const {
    const bool isData = from.takeUShortCompact(header) && (header & LogEntry::TYPE_MASK) == LogEntry::DATA_LOG_ENTRY;
    return isData ? accesses_.find(header >> DataEntry::CODE_SHIFT) : nullptr;
}

void BinaryLogReader::meetAccess(const LogEntry& entry) {
    if (entry.getType() != LogEntry::DATA_LOG_ENTRY) return;
    accesses_.meet(*static_cast<const DataEntry&>(entry).getDataAccess(), values_);
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
    offer(entry);
    if (marker != nullptr && marker->getRunning() == 0) running_ = false;
}

void BinaryLogReader::offer(LogEntry& entry) {
    if (writeEngine_ == nullptr || !isInWindow(entry) || !(whileRunningName_.isEmpty() || running_)) return;
    passOn(entry);
}

bool BinaryLogReader::isInWindow(const LogEntry& entry) const {
    if (entry.getType() == LogEntry::DIRECTORY_LOG_ENTRY) return true;
    const Timestamp& t = entry.getTimestamp();
    return (!startTime_.isSet() || t >= startTime_) && (!endTime_.isSet() || t <= endTime_);
}

void BinaryLogReader::passOn(LogEntry& entry) {
    if (entry.getType() != LogEntry::DIRECTORY_LOG_ENTRY) noteTime(entry);
    process(entry);
}

// What the outputs have to say comes before the next entry.
void BinaryLogReader::process(LogEntry& entry) {
    writeEngine_->processEntry(&entry);
    if (syslogEngine_ != nullptr) syslogEngine_->processQueue(Timespan::ZERO_TIMESPAN);
}

void BinaryLogReader::noteTime(const LogEntry& entry) {
    const bool isFirst = !firstTime_.isSet() && timeBase_.isSet();
    if (isFirst) firstTime_ = entry.getTimestamp();
    lastTime_ = entry.getTimestamp();
}
