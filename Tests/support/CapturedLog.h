#pragma once

#include <string>
#include <utility>
#include <vector>

#include "data/Logger.h"

typedef std::vector<std::string> Lines;

// Collects what is logged through its logger, each message as "ERROR the text".
class CapturedLog : public SyslogSink {
public:
    void logMessage(const Str& text, Syslog::Severity severity, const CodedStr&) override {
        lines_.push_back(std::string(Syslog::SeverityToString(severity)) + " " + text.cStr());
    }
    operator const Logger&() const { return logger_; }
    // The messages since the last call.
    Lines take() { return std::exchange(lines_, {}); }

    Lines lines_;

private:
    const Logger logger_{"test", this};
};
