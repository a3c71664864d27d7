#pragma once

#include "utils/Str.h"

class LogEntry;

// A predicate over one log entry.
class Rule {
public:
    virtual ~Rule() {}
    virtual bool check(const LogEntry* entry) = 0;
    virtual Str toString() const = 0;
    virtual void activate() { active_ = true; }
    virtual void deactivate() { active_ = false; }
    virtual bool isActive() const { return active_; }

protected:
    bool active_ = true;
};
