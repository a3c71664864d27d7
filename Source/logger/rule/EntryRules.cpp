#include "logger/rule/EntryRules.h"

#include "logger/entry/DataEntry.h"

bool TypeRule::check(const LogEntry* entry) {
    return entry->getType() == type_;
}

Str TypeRule::toString() const {
    return Str("type=") + LogEntry::TypeToString(type_);
}

bool EventTypeRule::check(const LogEntry* entry) {
    return entry->getType() == LogEntry::EVENT_LOG_ENTRY &&
           static_cast<const EventEntry*>(entry)->getEventType() == eventType_;
}

Str EventTypeRule::toString() const {
    return Str("eventType=") + EventEntry::EventTypeToString(eventType_);
}

bool DataWriteRule::check(const LogEntry* entry) {
    return entry->getType() == LogEntry::DATA_LOG_ENTRY &&
           static_cast<const DataEntry*>(entry)->isDataWrite() == dataWrite_;
}

Str DataWriteRule::toString() const {
    return Str("dataWrite=") + (dataWrite_ ? "true" : "false");
}
