#pragma once

#include <atomic>
#include <cstddef>
#include <cstdlib>

#include "utils/Mutex.h"
#include "utils/RingBuffer.h"

// Recycles the blocks of one class, so that creating and deleting its objects at the data rate calls the heap only
// while the number of live objects grows. Used by a class's own operator new and operator delete.
// Lifetime: pools are never destroyed, since objects may be deleted after the last destructor of static objects ran;
// drain() gives the free blocks back, and from then on release() frees.
// Threads: allocate and release lock.
class RecyclingPool {
public:
    // className ends the message of a wrong-size request: "Double DataValue".
    constexpr RecyclingPool(const char* className, size_t blockSize) : className_(className), blockSize_(blockSize) {}

    // A block of the class's size. A request of another size ends the process with status 1 after
    // "Aborting: Requested %zu bytes for a %zu byte " and the class name on standard output.
    void* allocate(size_t size) {
        MutexLocker lock(mutex());
        if (size != blockSize_) abortRequest(size);
        if (void* const block = warmBlock_) {
            warmBlock_ = nullptr;
            return block;
        }
        return takeBlock();
    }
    void release(void* block) {  // one that allocate gave; null is ignored
        if (block == nullptr) return;
        MutexLocker lock(mutex());
        if (warmBlock_ == nullptr && mallocRing_ != nullptr) {
            warmBlock_ = block;
        } else {
            keepBlock(block);
        }
    }
    void drain();  // frees the blocks that are not in use; those in use are freed by their release

private:
    [[noreturn]] void abortRequest(size_t size) const;
    void* takeBlock();  // out of the ring, else from the heap; makes the ring on first use
    void keepBlock(void* block);
    // A pool is used before and after every static object lives, so its mutex cannot be one of its members.
    Mutex& mutex() {
        Mutex* const made = mutex_.load(std::memory_order_acquire);
        return made != nullptr ? *made : makeMutex();
    }
    Mutex& makeMutex();

    const char* const className_;
    const size_t blockSize_;
    RingBufferVoid* mallocRing_ = nullptr;  // owned free blocks; made on first use, null again after drain
    void* warmBlock_ = nullptr;             // the block released last, likely still in the processor's cache; owned
    bool drained_ = false;
    std::atomic<Mutex*> mutex_{nullptr};  // guards the two above; never destroyed
};
