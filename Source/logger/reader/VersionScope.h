#pragma once

#include "data/Log.h"

// As long as it lives, a log is decoded by what it tells of its version; afterwards it is as before, or as is said.
class VersionScope {
public:
    explicit VersionScope(Log& log) : log_(log), after_(log.version()) {}  // borrowed
    ~VersionScope() { log_.version() = after_; }
    VersionScope(const VersionScope&) = delete;
    VersionScope& operator=(const VersionScope&) = delete;

    // In force once the scope ends: that version, or the one that is in force at the call.
    void leave(LogVersion version) { after_ = version; }
    void leaveAsIs() { leave(log_.version()); }

private:
    Log& log_;
    LogVersion after_;
};
