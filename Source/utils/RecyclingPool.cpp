#include "utils/RecyclingPool.h"

#include <cassert>
#include <cstdio>
#include <cstdlib>

void* RecyclingPool::allocate(size_t size) {
    MutexLocker lock(mutex());
    if (size != blockSize_) abortRequest(size);
    if (mallocRing_ == nullptr && !drained_) mallocRing_ = new RingBufferVoid(true);
    void* block = mallocRing_ == nullptr ? nullptr : mallocRing_->pop();
    if (block == nullptr) block = malloc(blockSize_);
    assert(block != nullptr);
    return block;
}

void RecyclingPool::release(void* block) {
    if (block == nullptr) return;
    MutexLocker lock(mutex());
    if (mallocRing_ != nullptr) {
        mallocRing_->push(block);
    } else {
        free(block);
    }
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

// A pool is used before and after every static object lives, so its mutex cannot be one of its members.
Mutex& RecyclingPool::mutex() {
    Mutex* made = mutex_.load(std::memory_order_acquire);
    if (made != nullptr) return *made;
    Mutex* const fresh = new Mutex;
    if (mutex_.compare_exchange_strong(made, fresh)) return *fresh;
    delete fresh;
    return *made;
}
