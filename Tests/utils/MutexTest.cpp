#include "utils/Mutex.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <thread>

#include "utils/Timespan.h"

TEST(MutexTest, IsRecursive) {
    Mutex mutex;
    EXPECT_EQ(0, mutex.lock());
    EXPECT_TRUE(mutex.tryLock());
    EXPECT_EQ(0, mutex.unlock());
    std::thread([&] { EXPECT_FALSE(mutex.tryLock()); }).join();
    EXPECT_EQ(0, mutex.unlock());
    std::thread([&] { EXPECT_TRUE(mutex.tryLock() && mutex.unlock() == 0); }).join();
}

TEST(MutexTest, AnUnlockByAStrangerIsReported) {
    Mutex mutex;
    testing::internal::CaptureStdout();
    EXPECT_EQ(EPERM, mutex.unlock());
    char expected[128];
    snprintf(expected, sizeof(expected), "!!Thread unlocked mutex(0x%08zX) with code (1) Operation not permitted\n",
             reinterpret_cast<size_t>(&mutex));
    EXPECT_EQ(expected, testing::internal::GetCapturedStdout());
}

TEST(MutexTest, ALockerKeepsOtherThreadsOutForItsScope) {
    Mutex mutex;
    int total = 0;
    const auto add = [&] {
        for (int i = 0; i < 20000; ++i) {
            MutexLocker outer(mutex);
            MutexLocker inner(mutex);
            ++total;
        }
    };
    std::thread one(add), two(add);
    one.join();
    two.join();
    EXPECT_EQ(40000, total);
}

TEST(ThreadConditionTest, GivesUpWhenTheTimeRanOutAndWakesAWaiter) {
    Mutex mutex;
    ThreadCondition condition(mutex);
    bool ready = false;
    mutex.lock();
    EXPECT_EQ(ETIMEDOUT, condition.timedWait(Timespan(0, 1000)));
    std::thread other([&] {
        MutexLocker lock(mutex);
        ready = true;
        condition.signal();
    });
    while (!ready) EXPECT_EQ(0, condition.wait());
    mutex.unlock();
    other.join();
}
