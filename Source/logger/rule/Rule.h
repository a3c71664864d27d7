#pragma once

#include "logger/entry/LogEntry.h"
#include "utils/Str.h"

// A predicate over one log entry. Whoever takes it, an association or another rule, owns it.
class Rule {
public:
    virtual ~Rule() {}
    // True when the entry, which is not null, may pass. The switch below is not looked at: the association asks for it.
    virtual bool check(const LogEntry* entry) = 0;
    // What the rule asks for, such as "type=DATA": for people to read.
    virtual Str toString() const = 0;
    // False when check is false for every entry of the type, now and ever.
    virtual bool canAdmit(LogEntry::Type) const { return true; }
    // An association lets no entry through while its rule is not active. New rules are.
    virtual void activate() { active_ = true; }
    virtual void deactivate() { active_ = false; }
    virtual bool isActive() const { return active_; }

protected:
    bool active_ = true;
};
