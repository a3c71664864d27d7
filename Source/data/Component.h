#pragma once

#include "data/CodedStr.h"
#include "data/Slate.h"
#include "utils/Timestamp.h"

// A named part of the vehicle's software that reads and writes data. Building one gives its name a code in the current
// log. Its accessors borrow it. Threads: not synchronised.
class Component {
public:
    explicit Component(const Str& name, bool active = true) : name_(Slate::GetCodedName(name)), active_(active) {}
    virtual ~Component() {}
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;

    const CodedStr& getName() const { return name_; }
    bool isActive() const { return active_ && !failed_; }  // what it supplies can be read
    void setActive(bool active) { active_ = active; }      // false: switched off; a failed one stays inactive
    bool isFailed() const { return failed_; }
    void setFailed(bool failed) { failed_ = failed; }
    const Timestamp& getLastRun() const { return lastRun_; }  // NOT_SET_TIME before the first
    void setLastRun(const Timestamp& t) { lastRun_ = t; }

private:
    const CodedStr name_;  // with the code it had when the component was built
    bool active_;
    bool failed_ = false;
    Timestamp lastRun_ = Timestamp::NOT_SET_TIME;
};
