#pragma once

#include "data/Slate.h"

// Tells whether the Slate has learnt anything since the last look: what was not found then is worth looking up again.
class SlateWatch {
public:
    bool hasChanged() const {
        return !hasLooked_ || seenElementCount_ != Slate::GetElementURICount() ||
               seenAccessCount_ != Slate::GetDataAccessCount() || seenDirectoryRead_ != Slate::IsDirectoryRead();
    }
    void look() {
        seenElementCount_ = Slate::GetElementURICount();
        seenAccessCount_ = Slate::GetDataAccessCount();
        seenDirectoryRead_ = Slate::IsDirectoryRead();
        hasLooked_ = true;
    }
    void reset() { hasLooked_ = false; }  // everything counts as new

private:
    unsigned int seenElementCount_ = 0;
    unsigned int seenAccessCount_ = 0;
    bool seenDirectoryRead_ = false;
    bool hasLooked_ = false;
};
