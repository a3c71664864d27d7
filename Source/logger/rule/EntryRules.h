#pragma once

#include "logger/entry/EventEntry.h"
#include "logger/entry/LogEntry.h"
#include "logger/rule/Rule.h"

// Admits the entries of one kind.
class TypeRule final : public Rule {
public:
    explicit TypeRule(LogEntry::Type type) : type_(type) {}
    bool check(const LogEntry* entry) override;
    Str toString() const override;
    bool canAdmit(LogEntry::Type type) const override { return type == type_; }

private:
    const LogEntry::Type type_;
};

// Admits the events of one kind.
class EventTypeRule final : public Rule {
public:
    explicit EventTypeRule(EventEntry::EventType eventType) : eventType_(eventType) {}
    bool check(const LogEntry* entry) override;
    Str toString() const override;
    bool canAdmit(LogEntry::Type type) const override { return type == LogEntry::EVENT_LOG_ENTRY; }

private:
    const EventEntry::EventType eventType_;
};

// Admits the data that components wrote, or the data that they read.
class DataWriteRule : public Rule {
public:
    explicit DataWriteRule(bool dataWrite) : dataWrite_(dataWrite) {}  // false: reads
    bool check(const LogEntry* entry) override;
    Str toString() const override;
    bool canAdmit(LogEntry::Type type) const override { return type == LogEntry::DATA_LOG_ENTRY; }

private:
    const bool dataWrite_;
};
