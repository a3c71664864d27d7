#include "utils/RecyclingPool.h"

#include <cstdio>
#include <cstdlib>

#include "utils/MemoryReserve.h"

void* RecyclingPool::takeBlock() {
    if (mallocRing_ == nullptr && !drained_) mallocRing_ = new RingBufferVoid(true);
    void* const recycled = mallocRing_ == nullptr ? nullptr : mallocRing_->pop();
    void* block = recycled != nullptr ? recycled : malloc(blockSize_);
    for (; block == nullptr; block = malloc(blockSize_)) MemoryReserve::Take();  // operator new must not return null
    return block;
}

void RecyclingPool::keepBlock(void* block) {
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
    free(warmBlock_);
    warmBlock_ = nullptr;
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
