#pragma once

#include "data/Logger.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/KnownAccesses.h"
#include "logger/reader/EntryNotes.h"
#include "logger/reader/LogReader.h"
#include "logger/reader/MessageGate.h"
#include "utils/Timespan.h"

class EventEntry;
class LogEngine;

// Decodes one entry per read, lets it update the log's state, and offers those inside the time window and the mission
// to the engine of the writers.
class BinaryLogReader : public LogReader {
public:
    // Both times are inclusive; NOT_SET_TIME leaves that side open. An empty mission name admits every entry. The
    // engines may be null. Everything is borrowed and outlives the reader.
    BinaryLogReader(const Logger& logger, const Timestamp& start, const Timestamp& end, const Str& whileRunning,
                    LogEngine* write, LogEngine* syslog, Log& log = Log::Current());

    // One entry, or 0 at the end of data or for bytes that hold no entry; of the latter hasError() tells those that
    // nothing can be made of.
    unsigned int read() override;
    // Data entries of known accesses that lie whole in the stream's buffer; failing any, as read. It ends when memory
    // was refused. Of these none is handled when values are skipped.
    unsigned int readRun() override;
    MessageGate* getMessageGate() override { return &gate_; }
    EntryNotes* getEntryNotes() override { return &notes_; }

    void setValues(LogEntry::Values values) { values_ = values; }  // what becomes of values; at first they are stored

    // The sum of the corrections by GPS fixes; INVALID_TIMESPAN: fixes are ignored.
    const Timespan& getTimeAdjust() const { return timeAdjust_; }
    // Goes on from what another reader of the same run has come to.
    void setTimeAdjust(const Timespan& timeAdjust) { timeAdjust_ = timeAdjust; }
    // Of the first and last entry that had a time and was passed on; NOT_SET_TIME before there was one.
    const Timestamp& getFirstTime() const { return firstTime_; }
    const Timestamp& getLastTime() const { return lastTime_; }

protected:
    virtual void handle(LogEntry& entry);  // every entry that decodes

private:
    LogEntry* readEntry(bool& error);
    unsigned int readData();
    unsigned int stepOverData();
    bool passesAll() const;
    bool takeData(ByteCursor& from);
    [[gnu::always_inline]] const KnownAccess* takeHeader(unsigned short& header, ByteCursor& from) const;
    void meetAccess(const LogEntry& entry);
    void offer(LogEntry& entry);
    void countUnknownRecords();
    bool isInBounds(const LogEntry& entry) const;
    void resolveMission();
    const EventEntry* asMissionMarker(const LogEntry& entry) const;  // null when it is none
    void passOn(LogEntry& entry);
    void process(LogEntry& entry);
    bool isInWindow(const LogEntry& entry) const;
    void noteTime(const LogEntry& entry);

    MessageGate gate_;
    EntryNotes notes_;
    unsigned long unknownRecordsBefore_;
    Timestamp timeBase_ = Timestamp::NOT_SET_TIME;  // what entry times are relative to
    Timespan timeAdjust_ = Timespan::ZERO_TIMESPAN;
    const Logger& sysLogger_;        // the gate's
    const Timestamp& startTime_;     // borrowed
    const Timestamp& endTime_;       // borrowed
    const Str& whileRunningName_;    // borrowed
    LogEngine* const writeEngine_;   // borrowed; may be null
    LogEngine* const syslogEngine_;  // borrowed; may be null
    Timestamp firstTime_ = Timestamp::NOT_SET_TIME;
    Timestamp lastTime_ = Timestamp::NOT_SET_TIME;
    unsigned short whileRunningCode_;  // CodedStr::NO_CODE until the name is known
    bool running_ = false;
    LogEntry::Values values_ = LogEntry::STORE_VALUES;
    KnownAccesses accesses_{log_};
    DataEntry dataEntry_{log_};  // each of a run
};
