#pragma once

#include "data/Syslog.h"
#include "logger/rule/Rule.h"

// Admits the messages that begin with a text, letter for letter.
class SyslogStartRule final : public Rule {
public:
    explicit SyslogStartRule(const Str& start) : start_(start) {}
    bool check(const LogEntry* entry) override;
    Str toString() const override;
    bool canAdmit(LogEntry::Type type) const override { return type == LogEntry::SYSLOG_LOG_ENTRY; }

private:
    const Str start_;
};

// Admits the messages of a severity, or of at least that severity.
class SyslogSeverityRule final : public Rule {
public:
    // orGreater: higher severities too. But CRITICAL admits itself alone, FAULT or greater CRITICAL as well, NONE
    // nothing.
    SyslogSeverityRule(Syslog::Severity severity, bool orGreater) : severity_(severity), orGreater_(orGreater) {}
    bool check(const LogEntry* entry) override;
    Str toString() const override;
    bool canAdmit(LogEntry::Type type) const override { return type == LogEntry::SYSLOG_LOG_ENTRY; }

private:
    bool admits(Syslog::Severity severity) const;

    const Syslog::Severity severity_;
    const bool orGreater_;
};
