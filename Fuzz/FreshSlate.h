#pragma once

#include <sys/single_threaded.h>

#include "data/Slate.h"
#include "logger/entry/DirectoryEntry.h"

// What one input teaches is forgotten when its FreshSlate goes.
class FreshSlate {
public:
    FreshSlate() = default;
    ~FreshSlate() {
        Slate::ClearDirectory();
        Slate::Uninitialize();
        DirectoryEntry::ElementStore_.clear();
        DirectoryEntry::CurrentLogVersion_ = newest_;
    }
    FreshSlate(const FreshSlate&) = delete;
    FreshSlate& operator=(const FreshSlate&) = delete;

private:
    const unsigned short newest_ = DirectoryEntry::CurrentLogVersion_;
};

// Streams take bytes inline, and locks are free, only while the process has one thread. libFuzzer's watch over memory
// is a second one, but touches nothing of ours.
inline void ActAsOneThread(bool one = true) {
    __libc_single_threaded = one;
}
