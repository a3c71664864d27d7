#pragma once

#include "data/Logger.h"
#include "utils/FlexArray.h"

// Stands in front of a logger while a log is decoded, so that long damage can be kept from flooding the console.
class MessageGate : private SyslogSink {
public:
    explicit MessageGate(const Logger& logger);  // borrowed, outlives the gate
    MessageGate(const MessageGate&) = delete;
    MessageGate& operator=(const MessageGate&) = delete;

    const Logger& getLogger() const { return gated_; }    // what is logged here passes through the gate
    const Logger& getOutside() const { return logger_; }  // what is logged here goes past the gate
    void open();                                          // what waits passes first
    void close() { isOpen_ = false; }                     // messages wait until the gate opens again
    void dropWaiting() { waiting_.clear(); }
    unsigned long getComplaints() const { return complaints_; }  // messages at ERROR or above, dropped ones included
    void countComplaint() { ++complaints_; }                     // one without a message

private:
    struct Message {
        Str text_;
        Syslog::Severity severity_;
    };

    void logMessage(const Str& text, Syslog::Severity severity, const CodedStr& facility) override;

    const Logger& logger_;  // borrowed
    const Logger gated_;
    bool isOpen_ = true;
    FlexArray<Message*> waiting_{true};  // owned
    unsigned long complaints_ = 0;
};
