#include "data/Logger.h"

#include "utils/TextBuffer.h"

void Logger::syslog(const Str& text, Syslog::Severity severity) const {
    if (console_ != nullptr) console_->logMessage(text, severity, facility_);
}

void Logger::syslog(const char* text, unsigned long n, Syslog::Severity severity) const {
    if (console_ == nullptr) return;
    syslog(TextBuffer().append(text).appendHex(n).toStr(), severity);
}

void Logger::fileFailure(const char* failedTo, const Str& filename, const char* reason) const {
    syslog(Str("Failed to ") + failedTo + " " + filename + ": " + reason, Syslog::ERROR);
}
