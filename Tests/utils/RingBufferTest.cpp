#include "utils/RingBuffer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <random>
#include <thread>

#include "support/Counted.h"

static int Items[16];

TEST(RingBufferTest, IsEmptyUntilPushed) {
    RingBuffer<int*> ring;
    EXPECT_EQ(nullptr, ring.pop());
    EXPECT_EQ(nullptr, ring.peek());
    EXPECT_EQ(0u, ring.nodeCount());
}

TEST(RingBufferTest, ReusesItsNodes) {
    RingBuffer<int*> ring;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 3; ++i) ring.push(&Items[i]);
        EXPECT_EQ(&Items[0], ring.peek());
        for (int i = 0; i < 3; ++i) EXPECT_EQ(&Items[i], ring.pop());
    }
    EXPECT_EQ(3u, ring.nodeCount());
}

TEST(RingBufferTest, IsAQueueWhateverTheOrderOfPushesAndPops) {
    std::mt19937 random(3);
    RingBuffer<const int*> ring;
    std::deque<const int*> expected;
    size_t longest = 0;
    for (int i = 0; i < 5000; ++i) {
        if (random() % 2 == 0) {
            expected.push_back(&Items[random() % 16]);
            ring.push(expected.back());
            longest = std::max(longest, expected.size());
        } else if (!expected.empty()) {
            ASSERT_EQ(expected.front(), ring.pop());
            expected.pop_front();
        } else {
            ASSERT_EQ(nullptr, ring.pop());
        }
    }
    EXPECT_EQ(longest, ring.nodeCount());
}

TEST(RingBufferTest, ReleasesWhatIsLeftInIt) {
    RingBufferVoid blocks(true);
    for (int i = 0; i < 3; ++i) blocks.push(malloc(8));
    free(blocks.pop());

    Counted::Live_ = 0;
    RingBuffer<Counted*> objects;
    for (int i = 0; i < 3; ++i) objects.push(new Counted);
    objects.deleteAll();
    EXPECT_EQ(0, Counted::Live_);
    EXPECT_EQ(nullptr, objects.peek());
}

TEST(RingBufferTest, AProducerAndAConsumerMayShareIt) {
    static const int COUNT = 20000;
    RingBuffer<int*> ring;
    std::thread producer([&ring] {
        for (int i = 0; i < COUNT; ++i) ring.push(&Items[i % 16]);
    });
    for (int taken = 0; taken < COUNT;) {
        int* const item = ring.pop();
        if (item == nullptr) {
            std::this_thread::yield();
            continue;
        }
        EXPECT_EQ(&Items[taken++ % 16], item);
    }
    producer.join();
    EXPECT_EQ(nullptr, ring.pop());
}
