#pragma once

#include "data/Logger.h"
#include "utils/FlexArray.h"

// Stands in front of a logger while a log is decoded, so that damage can be kept from flooding the console: it can be
// closed, and of each file only so many messages at ERROR pass.
class MessageGate : private SyslogSink {
public:
    static constexpr unsigned int MAX_PASSED = 45;  // errors of one file; more than the failures of one stretch say
    static constexpr unsigned int MAX_WORSE = 3;    // of one file, besides: errors never hide what is worse

    explicit MessageGate(const Logger& logger);  // borrowed, outlives the gate
    MessageGate(const MessageGate&) = delete;
    MessageGate& operator=(const MessageGate&) = delete;

    const Logger& getLogger() const { return gated_; }    // what is logged here passes through the gate
    const Logger& getOutside() const { return logger_; }  // what is logged here goes past the gate
    void open();                                          // what waits passes first
    void close() { isOpen_ = false; }                     // messages wait until the gate opens again
    // What waits is never shown.
    void dropWaiting() { waiting_.clear(); }
    // Messages are counted from here on anew; complaints are not.
    void beginFile() { errors_ = worse_ = tooMany_ = 0; }
    unsigned int getTooMany() const { return tooMany_; }         // messages of this file that were not let pass
    unsigned long getComplaints() const { return complaints_; }  // messages at ERROR or above, dropped ones included
    void countComplaint() { ++complaints_; }                     // one without a message

private:
    struct Message {
        Str text_;
        Syslog::Severity severity_;
    };

    void pass(const Str& text, Syslog::Severity severity);
    bool isOneTooMany(Syslog::Severity severity);
    void logMessage(const Str& text, Syslog::Severity severity, const CodedStr& facility) override;

    const Logger& logger_;  // borrowed
    const Logger gated_;
    bool isOpen_ = true;
    unsigned int errors_ = 0;  // of this file
    unsigned int worse_ = 0;
    unsigned int tooMany_ = 0;
    FlexArray<Message*> waiting_{true};  // owned
    unsigned long complaints_ = 0;
};
