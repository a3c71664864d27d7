#include "logger/reader/MessageGate.h"

MessageGate::MessageGate(const Logger& logger) : logger_(logger), gated_(logger.getFacility().cStr(), this) {}

void MessageGate::logMessage(const Str& text, Syslog::Severity severity, const CodedStr&) {
    if (severity >= Syslog::ERROR) ++complaints_;
    if (isOpen_) {
        pass(text, severity);
    } else {
        waiting_.push(new Message{text, severity});
    }
}

void MessageGate::pass(const Str& text, Syslog::Severity severity) {
    if (isOneTooMany(severity)) {
        ++tooMany_;
    } else {
        logger_.syslog(text, severity);
    }
}

bool MessageGate::isOneTooMany(Syslog::Severity severity) {
    if (severity < Syslog::ERROR) return false;
    return severity == Syslog::ERROR ? ++errors_ > MAX_PASSED : ++worse_ > MAX_WORSE;
}

void MessageGate::open() {
    isOpen_ = true;
    for (unsigned int i = 0; i < waiting_.size(); ++i) pass(waiting_.at(i)->text_, waiting_.at(i)->severity_);
    waiting_.clear();
}
