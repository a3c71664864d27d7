#include "logger/engine/LogEngine.h"

#include <memory>

#include "logger/entry/EventEntry.h"
#include "logger/entry/SyslogEntry.h"

LogAssociation* LogEngine::addAssociation(LogWriter* writer, Rule* rule) {
    LogAssociation* const association = associations_.add(writer, rule);
    for (int type = 0; type < LogEntry::TYPE_COUNT; ++type) {
        if (association->canMatch(static_cast<LogEntry::Type>(type))) routes_[type].push(association);
    }
    return association;
}

void LogEngine::processEntry(LogEntry* entry) {
    if (EventEntry::IsCycleStart(*entry)) endCycle();
    const FlexArray<LogAssociation*>& route = routes_[entry->getType()];
    for (unsigned int i = 0; i < route.size(); ++i) route.at(i)->matchAndProcess(entry);
}

void LogEngine::logMessage(const Str& text, Syslog::Severity severity, const CodedStr& facility) {
    queueEntry(new SyslogEntry(text, severity, facility));
}

void LogEngine::deliverQueue(const Timespan& limit) {
    const bool limited = limit != Timespan::ZERO_TIMESPAN;
    const Timestamp end = limited ? Timestamp::Now() + limit : Timestamp::NOT_SET_TIME;
    while (LogEntry* next = queue_.pop()) {
        const std::unique_ptr<LogEntry> entry(next);
        processEntry(next);
        if (limited && Timestamp::Now() >= end) return;
    }
}

void LogEngine::endCycle() {
    for (unsigned int i = 0; i < associations_.count(); ++i) associations_.at(i)->endCycle();
}

void LogEngine::resetInputs() {
    for (unsigned int i = 0; i < associations_.count(); ++i) associations_.at(i)->resetInputs();
}

bool LogEngine::freeMemory() {
    static const size_t LITTLE = 1048576;  // bytes
    LogWriter* largest = nullptr;
    for (unsigned int i = 0; i < associations_.count(); ++i) {
        LogWriter* const writer = associations_.at(i)->getWriter();
        if (writer == nullptr || writer->heldBytes() <= LITTLE) continue;
        if (largest == nullptr || writer->heldBytes() > largest->heldBytes()) largest = writer;
    }
    if (largest != nullptr) largest->freeMemory();
    return largest != nullptr;
}

void LogEngine::uninitialize() {
    for (unsigned int i = 0; i < associations_.count(); ++i) associations_.at(i)->writeFooter();
    for (FlexArray<LogAssociation*>& route : routes_) route.clear();
    while (associations_.count() > 0) delete associations_.pop(0);
}
