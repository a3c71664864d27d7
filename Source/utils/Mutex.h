#pragma once

#include <pthread.h>
#include <sys/single_threaded.h>

class Timespan;

// A recursive lock: its holder may take it again, and gives it back as often.
class Mutex {
public:
    Mutex();
    ~Mutex();
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    int lock();      // the pthread error number, 0 on success; a failure is printed on standard output
    int unlock();    // likewise
    bool tryLock();  // true when the lock was taken

private:
    friend class ThreadCondition;
    pthread_mutex_t mutex_;
};

// Holds a mutex for the length of a scope. While the process has a single thread there is nobody to keep out,
// so nothing is locked: the entry path takes several of these per entry. A thread that is started inside the scope of
// such a locker is not kept out.
class MutexLocker {
public:
    explicit MutexLocker(Mutex& mutex) : mutex_(__libc_single_threaded ? nullptr : &mutex) {
        if (mutex_ != nullptr) mutex_->lock();
    }
    ~MutexLocker() {
        if (mutex_ != nullptr) mutex_->unlock();
    }
    MutexLocker(const MutexLocker&) = delete;
    MutexLocker& operator=(const MutexLocker&) = delete;

private:
    Mutex* const mutex_;  // borrowed; null when nothing had to be locked
};

// A condition variable on a mutex that the caller keeps and holds, once, while waiting: by lock, or by a MutexLocker
// made when there was more than one thread.
class ThreadCondition {
public:
    explicit ThreadCondition(Mutex& mutex);
    ~ThreadCondition();
    ThreadCondition(const ThreadCondition&) = delete;
    ThreadCondition& operator=(const ThreadCondition&) = delete;

    // Each gives the pthread error number, 0 on success. A wait may end without a signal: check what was waited for.
    int wait();
    int timedWait(const Timespan& timeout);  // ETIMEDOUT when the time, by the monotonic clock, ran out
    int signal();                            // wakes one that waits
    int broadcast();                         // wakes all

private:
    Mutex& mutex_;  // borrowed
    pthread_cond_t condition_;
};
