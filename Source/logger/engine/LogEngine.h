#pragma once

#include "data/Logger.h"
#include "logger/engine/LogQueue.h"
#include "logger/engine/LoggerAssociationDeque.h"
#include "utils/Timespan.h"

// Offers log entries to (writer, rule) associations, in the order in which these were added. As a sink of the program's
// own messages it queues each of them as a syslog entry.
class LogEngine : public SyslogSink {
public:
    LogEngine() : queue_(ownQueue_) {}                      // with a queue of its own
    explicit LogEngine(LogQueue& queue) : queue_(queue) {}  // borrowed, outlives the engine
    ~LogEngine() override { uninitialize(); }
    LogEngine(const LogEngine&) = delete;
    LogEngine& operator=(const LogEngine&) = delete;

    // Counts the writer and takes over the rule, which may be null. The result belongs to the engine.
    LogAssociation* addAssociation(LogWriter* writer, Rule* rule);
    // Offers the entry at once and keeps nothing of it. A cycle start first ends the cycle of every association.
    void processEntry(LogEntry* entry);
    void queueEntry(LogEntry* entry) { queue_.push(entry); }  // takes ownership
    // Queued, and stamped with the time of the call: whoever logs, on whatever thread, waits for no writer.
    void logMessage(const Str& text, Syslog::Severity severity, const CodedStr& facility) override;
    // Delivers and deletes what is queued, oldest first, for about as long as the limit says; ZERO_TIMESPAN: until the
    // queue is empty, what is queued meanwhile included.
    void processQueue(const Timespan& limit) {
        if (queue_.peek() != nullptr) deliverQueue(limit);
    }
    void resetInputs();  // of every writer
    // Has the output that holds the most memory give it back. False when none holds much.
    bool freeMemory();
    // Ends every writer: all footers are written while every file is still open, then the associations are destroyed in
    // order, which closes the files. Calling it again does nothing.
    void uninitialize();

private:
    void deliverQueue(const Timespan& limit);
    void endCycle();

    LogQueue ownQueue_;
    LogQueue& queue_;  // ownQueue_ or a borrowed one
    LoggerAssociationDeque associations_;
    FlexArray<LogAssociation*> routes_[LogEntry::TYPE_COUNT];  // those that can match entries of a type; borrowed
};
