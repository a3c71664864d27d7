#pragma once

#include "logger/entry/LogEntry.h"
#include "utils/Str.h"

// A predicate over one log entry.
class Rule {
public:
    virtual ~Rule() {}
    virtual bool check(const LogEntry* entry) = 0;
    virtual Str toString() const = 0;
    // False when check is false for every entry of the type, now and ever.
    virtual bool canAdmit(LogEntry::Type) const { return true; }
    virtual void activate() { active_ = true; }
    virtual void deactivate() { active_ = false; }
    virtual bool isActive() const { return active_; }

protected:
    bool active_ = true;
};
