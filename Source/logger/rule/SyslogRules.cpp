#include "logger/rule/SyslogRules.h"

#include <cstring>

#include "logger/entry/SyslogEntry.h"

namespace {
// The entry as a message; null for an entry of another kind.
const SyslogEntry* AsSyslog(const LogEntry* entry) {
    return entry->getType() == LogEntry::SYSLOG_LOG_ENTRY ? static_cast<const SyslogEntry*>(entry) : nullptr;
}
}  // namespace

// Bytes are compared: Str::startsWith ignores the case of letters.
bool SyslogStartRule::check(const LogEntry* entry) {
    const SyslogEntry* syslog = AsSyslog(entry);
    return syslog != nullptr && syslog->getMessage().length() >= start_.length() &&
           memcmp(syslog->getMessage().data(), start_.data(), start_.length()) == 0;
}

Str SyslogStartRule::toString() const {
    return Str("start=") + start_;
}

bool SyslogSeverityRule::check(const LogEntry* entry) {
    const SyslogEntry* syslog = AsSyslog(entry);
    return syslog != nullptr && admits(syslog->getSeverity());
}

// The two highest severities stand apart: critical is always matched alone, and fault or greater begins at critical.
bool SyslogSeverityRule::admits(Syslog::Severity severity) const {
    switch (severity_) {
        case Syslog::DEBUG:
        case Syslog::INFO:
        case Syslog::ERROR:
        case Syslog::IMPORTANT:
            return orGreater_ ? severity >= severity_ : severity == severity_;
        case Syslog::CRITICAL:
            return severity == Syslog::CRITICAL;
        case Syslog::FAULT:
            return orGreater_ ? severity >= Syslog::CRITICAL : severity == Syslog::FAULT;
        default:
            return false;
    }
}

Str SyslogSeverityRule::toString() const {
    return Str("severity=") + Syslog::SeverityToString(severity_);
}
