#pragma once

#include "data/CodedStr.h"
#include "data/Syslog.h"

// Takes the program's own messages; the console engine is one.
class SyslogSink {
public:
    virtual ~SyslogSink() {}
    // The facility is borrowed and outlives the sink's use of the message.
    virtual void logMessage(const Str& text, Syslog::Severity severity, const CodedStr& facility) = 0;
};

// A named source of messages. Its facility has no code and is not registered in a log, where it would take a code.
class Logger {
public:
    // The form in which an entry's time is stored: compact micros or compact millis.
    enum TimePrecisionType { TIME_PRECISION_MICROS = 0, TIME_PRECISION_MILLIS = 1 };

    Logger(const char* name, SyslogSink* console) : facility_(name), console_(console) {}

    void syslog(const Str& text, Syslog::Severity severity) const;
    void syslog(const char* text, unsigned long n, Syslog::Severity severity) const;  // n in upper-case hexadecimal
    // An ERROR: what could not be done ("write") with a file, and why.
    void fileFailure(const char* failedTo, const Str& filename, const char* reason) const;
    const CodedStr& getFacility() const { return facility_; }
    bool isSilent() const { return console_ == nullptr; }

private:
    const CodedStr facility_;
    SyslogSink* const console_;  // borrowed; null: messages vanish
};
