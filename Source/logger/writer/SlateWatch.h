#pragma once

#include "data/Log.h"

// Tells whether the log's directory has learnt anything since the last look: what was not found then is worth looking
// up again.
class SlateWatch {
public:
    explicit SlateWatch(const Log& log = Log::Current()) : log_(log) {}  // borrowed

    // Also before the first look.
    bool hasChanged() const {
        return !hasLooked_ || seenElementCount_ != log_.getElementURICount() ||
               seenAccessCount_ != log_.getDataAccessCount() || seenDirectoryRead_ != log_.isDirectoryRead();
    }
    void look() {
        seenElementCount_ = log_.getElementURICount();
        seenAccessCount_ = log_.getDataAccessCount();
        seenDirectoryRead_ = log_.isDirectoryRead();
        hasLooked_ = true;
    }
    void reset() { hasLooked_ = false; }  // everything counts as new

private:
    const Log& log_;
    unsigned int seenElementCount_ = 0;
    unsigned int seenAccessCount_ = 0;
    bool seenDirectoryRead_ = false;
    bool hasLooked_ = false;
};
