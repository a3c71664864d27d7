#include "utils/Mutex.h"

#include <cstdio>
#include <cstring>

#include "utils/Timespan.h"

// One attribute for all mutexes, prepared with the first of them and never given back.
static const pthread_mutexattr_t* RecursiveAttribute() {
    static const pthread_mutexattr_t ATTRIBUTE = [] {
        pthread_mutexattr_t attribute;
        pthread_mutexattr_init(&attribute);
        pthread_mutexattr_settype(&attribute, PTHREAD_MUTEX_RECURSIVE);
        return attribute;
    }();
    return &ATTRIBUTE;
}

Mutex::Mutex() {
    pthread_mutex_init(&mutex_, RecursiveAttribute());
}

Mutex::~Mutex() {
    pthread_mutex_destroy(&mutex_);
}

int Mutex::lock() {
    const int code = pthread_mutex_lock(&mutex_);
    if (code != 0) {
        printf("!!Thread locked mutex(0x%08zX) with code (%d) %s\n", reinterpret_cast<size_t>(this), code,
               strerror(code));
        fflush(stdout);
    }
    return code;
}

int Mutex::unlock() {
    const int code = pthread_mutex_unlock(&mutex_);
    if (code != 0) {
        printf("!!Thread unlocked mutex(0x%08zX) with code (%d) %s\n", reinterpret_cast<size_t>(this), code,
               strerror(code));
    }
    return code;
}

bool Mutex::tryLock() {
    return pthread_mutex_trylock(&mutex_) == 0;
}

// Time-outs are measured on the monotonic clock: setting the system's time must not stretch a wait.
ThreadCondition::ThreadCondition(Mutex& mutex) : mutex_(mutex) {
    pthread_condattr_t attribute;
    pthread_condattr_init(&attribute);
    pthread_condattr_setclock(&attribute, CLOCK_MONOTONIC);
    pthread_cond_init(&condition_, &attribute);
    pthread_condattr_destroy(&attribute);
}

ThreadCondition::~ThreadCondition() {
    pthread_cond_destroy(&condition_);
}

int ThreadCondition::wait() {
    return pthread_cond_wait(&condition_, &mutex_.mutex_);
}

int ThreadCondition::timedWait(const Timespan& timeout) {
    Timestamp deadline;
    deadline.setToMonoTime();
    deadline += timeout;
    timespec until;
    deadline.toTimespec(&until);
    return pthread_cond_timedwait(&condition_, &mutex_.mutex_, &until);
}

int ThreadCondition::signal() {
    return pthread_cond_signal(&condition_);
}

int ThreadCondition::broadcast() {
    return pthread_cond_broadcast(&condition_);
}
