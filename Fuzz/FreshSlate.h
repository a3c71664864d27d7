#pragma once

#include <sys/single_threaded.h>

#include "data/Log.h"

// What one input teaches is forgotten when its FreshSlate goes.
class FreshSlate {
public:
    FreshSlate() : use_(log_) {}

    Log& log() { return log_; }

private:
    Log log_;
    const Log::Use use_;
};

// Locks are free only while the process has one thread. libFuzzer's watch over memory is a second one, but touches
// nothing of ours.
inline void ActAsOneThread(bool one = true) {
    __libc_single_threaded = one;
}
