#pragma once

#include <string>
#include <vector>

#include "data/Logger.h"

// Collects what is logged through its logger, each message as "ERROR the text".
class CapturedLog : public SyslogSink {
public:
    void logMessage(const Str& text, Syslog::Severity severity, const CodedStr&) override {
        lines_.push_back(std::string(Syslog::SeverityToString(severity)) + " " + text.cStr());
    }
    operator const Logger&() const { return logger_; }
    // The messages since the last call.
    std::vector<std::string> take() {
        std::vector<std::string> taken;
        taken.swap(lines_);
        return taken;
    }

    std::vector<std::string> lines_;

private:
    const Logger logger_{"test", this};
};
