#include "utils/RecyclingPool.h"

#include <gtest/gtest.h>

#include <unistd.h>

static const size_t BLOCK = 24;

TEST(RecyclingPoolTest, HandsOutReleasedBlocksAgainOldestFirst) {
    static RecyclingPool pool("Thing", BLOCK);
    void* const first = pool.allocate(BLOCK);
    void* const second = pool.allocate(BLOCK);
    pool.release(first);
    pool.release(nullptr);
    pool.release(second);
    EXPECT_EQ(first, pool.allocate(BLOCK));
    EXPECT_EQ(second, pool.allocate(BLOCK));
    pool.release(first);
    pool.drain();
    pool.release(second);  // objects may be deleted and made after their class gave its blocks back
    pool.release(pool.allocate(BLOCK));
    pool.drain();
}

TEST(RecyclingPoolDeathTest, ARequestOfAnotherSizeEndsTheProcess) {
    static RecyclingPool pool("Thing", BLOCK);
    const auto request = [] {
        dup2(STDERR_FILENO, STDOUT_FILENO);  // the message is on standard output, death tests look at standard error
        pool.allocate(32);
    };
    EXPECT_EXIT(request(), testing::ExitedWithCode(1), "Aborting: Requested 32 bytes for a 24 byte Thing\n");
}
