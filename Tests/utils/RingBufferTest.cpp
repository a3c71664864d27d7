#include "utils/RingBuffer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <random>
#include <thread>

#include "support/Counted.h"

static int Items[16];

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
        } else {
            const int* const next = expected.empty() ? nullptr : expected.front();
            ASSERT_EQ(next, ring.peek());
            ASSERT_EQ(next, ring.pop());
            if (!expected.empty()) expected.pop_front();
        }
    }
    EXPECT_EQ(longest, ring.nodeCount());
}

TEST(RingBufferTest, ReleasesWhatIsLeftInIt) {
    RingBufferVoid blocks(true);
    blocks.push(malloc(8));

    Counted::Live_ = 0;
    RingBuffer<Counted*> objects;
    for (int i = 0; i < 3; ++i) objects.push(new Counted);
    objects.deleteAll();
    EXPECT_EQ(0, Counted::Live_);
}

TEST(RingBufferTest, AProducingAndAConsumingThreadMayShareIt) {
    static const int COUNT = 20000;
    RingBuffer<int*> ring;
    std::thread producer([&ring] {
        for (int i = 0; i < COUNT; ++i) ring.push(&Items[i % 16]);
    });
    for (int taken = 0; taken < COUNT; std::this_thread::yield()) {
        while (int* const item = ring.pop()) EXPECT_EQ(&Items[taken++ % 16], item);
    }
    producer.join();
}
