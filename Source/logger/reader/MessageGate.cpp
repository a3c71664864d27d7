#include "logger/reader/MessageGate.h"

MessageGate::MessageGate(const Logger& logger) : logger_(logger), gated_(logger.getFacility().cStr(), this) {}

void MessageGate::logMessage(const Str& text, Syslog::Severity severity, const CodedStr&) {
    if (severity >= Syslog::ERROR) ++complaints_;
    if (isOpen_) logger_.syslog(text, severity);
}
