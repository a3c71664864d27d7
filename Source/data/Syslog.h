#pragma once

// Severities of syslog messages; the numbers are those of the log.
class Syslog {
public:
    enum Severity : int { NONE = -1, DEBUG = 0, INFO = 4, ERROR = 8, IMPORTANT = 12, CRITICAL = 16, FAULT = 20 };

    // "DEBUG" and so on, a constant; empty for NONE, "(undefined)" for a value that names no severity.
    static const char* SeverityToString(Severity severity);
};
