#pragma once

#include "data/CodedStr.h"
#include "data/Syslog.h"
#include "logger/entry/LogEntry.h"
#include "logger/entry/PoolDrain.h"
#include "utils/RecyclingPool.h"

// A message that a component logged, with its severity and the facility that issued it.
class SyslogEntry final : public LogEntry {
public:
    static constexpr unsigned short SEVERITY_MASK = 28;  // bits 2-4 of the header word: the severity as it stands
    static constexpr unsigned short FACILITY_SHIFT = 5;  // bits 5-15: the facility code
    static constexpr unsigned short MAX_FACILITY = 2047;
    static constexpr unsigned short MAX_MESSAGE_LENGTH = 65535;  // bytes; a longer message is cut

    // The facility is borrowed (from the log or a logger) and outlives the entry. NOT_SET_TIME stands for now.
    SyslogEntry(const Str& message, Syslog::Severity severity, const CodedStr& facility,
                const Timestamp& t = Timestamp::NOT_SET_TIME, Log& log = Log::Current());
    SyslogEntry(const SyslogEntry& other) = default;

    unsigned int write(Timestamp& timeBase, OutStream& out) const override;
    void appendTo(TextBuffer& text, const Unit* unit) const override;
    // A shorter line for the note of a place on a map; empty at severity NONE, as toString.
    virtual Str toKmlString(const Unit* unit) const;

    const Str& getMessage() const { return message_; }
    // Also a number that is no severity, as a log may have it.
    Syslog::Severity getSeverity() const { return severity_; }
    // Who issued the message; borrowed.
    const CodedStr& getLoggerFacility() const { return loggerFacility_; }

    // As LogEntry::Read, past the header word. Without a text there is no entry; a facility that the log does not name
    // sets error. The message of a GPS fix bears the time of the fix.
    static SyslogEntry* Read(Timestamp& timeBase, Timespan& timeAdjust, InStream& in, unsigned short header,
                             const Logger& logger, bool& error, Log& log = Log::Current());

    static void* operator new(size_t size) { return Pool_.allocate(size); }
    static void operator delete(void* block) { Pool_.release(block); }

private:
    Str message_;
    Syslog::Severity severity_;
    const CodedStr& loggerFacility_;  // borrowed

    static RecyclingPool Pool_;
    static const PoolDrain PoolDrain_;
};
