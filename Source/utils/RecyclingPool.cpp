#include "utils/RecyclingPool.h"

#include <cassert>
#include <cstdio>
#include <cstdlib>

void* RecyclingPool::makeBlock() {
    if (mallocRing_ == nullptr && !drained_) mallocRing_ = new RingBufferVoid(true);
    void* const block = malloc(blockSize_);
    assert(block != nullptr);
    return block;
}

void RecyclingPool::drain() {
    MutexLocker lock(mutex());
    delete mallocRing_;
    mallocRing_ = nullptr;
    drained_ = true;
}

void RecyclingPool::abortRequest(size_t size) const {
    printf("Aborting: Requested %zu bytes for a %zu byte %s\n", size, blockSize_, className_);
    exit(1);
}

Mutex& RecyclingPool::makeMutex() {
    Mutex* made = nullptr;
    Mutex* const fresh = new Mutex;
    if (mutex_.compare_exchange_strong(made, fresh)) return *fresh;
    delete fresh;
    return *made;
}
