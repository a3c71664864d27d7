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

// What is worse than an error is always shown.
void MessageGate::pass(const Str& text, Syslog::Severity severity) {
    const bool isTooMany = severity == Syslog::ERROR && ++passed_ > MAX_PASSED;
    if (isTooMany) {
        ++tooMany_;
    } else {
        logger_.syslog(text, severity);
    }
}

void MessageGate::open() {
    isOpen_ = true;
    for (unsigned int i = 0; i < waiting_.size(); ++i) pass(waiting_.at(i)->text_, waiting_.at(i)->severity_);
    waiting_.clear();
}
