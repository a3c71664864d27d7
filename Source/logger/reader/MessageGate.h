#pragma once

#include "data/Logger.h"

// Stands in front of a logger while a log is decoded, so that long damage can be kept from flooding the console.
class MessageGate : private SyslogSink {
public:
    explicit MessageGate(const Logger& logger);  // borrowed, outlives the gate
    MessageGate(const MessageGate&) = delete;
    MessageGate& operator=(const MessageGate&) = delete;

    const Logger& getLogger() const { return gated_; }  // what is logged here passes through the gate
    void open() { isOpen_ = true; }
    void close() { isOpen_ = false; }                            // messages vanish until the gate opens again
    unsigned long getComplaints() const { return complaints_; }  // messages at ERROR or above, vanished ones included

private:
    void logMessage(const Str& text, Syslog::Severity severity, const CodedStr& facility) override;

    const Logger& logger_;  // borrowed
    const Logger gated_;
    bool isOpen_ = true;
    unsigned long complaints_ = 0;
};
