#include "utils/FlexArray.h"

#include <gtest/gtest.h>

#include "support/Counted.h"

// Whether it is in place is seen by address only.
static int Items[64];

static void Fill(FlexArray<int*>& array, int count) {
    for (int i = 0; i < count; ++i) array.push(&Items[i]);
}

// A ceiling between two doublings is not reached.
TEST(FlexArrayTest, GrowsByDoublingUpToItsCeiling) {
    for (const unsigned int ceiling : {4u, 7u}) {
        FlexArray<int*> array(false, 2, ceiling);
        Fill(array, 8);
        array.set(4000000000u, &Items[9]);
        array[4] = &Items[4];
        EXPECT_EQ(4u, array.size());
        EXPECT_EQ(&Items[3], array.peek(-1));
        EXPECT_EQ(nullptr, array[4]);
        EXPECT_EQ(-1, array.resolveIndex(4));
    }
}

TEST(FlexArrayTest, NegativeIndicesCountFromTheEnd) {
    FlexArray<int*> array;
    Fill(array, 3);
    EXPECT_EQ(&Items[2], array.get(-1));
    EXPECT_EQ(-1, array.getIndex(-4));
    EXPECT_EQ(&Items[1], array.pop(-2));
    EXPECT_EQ(&Items[2], array.pop(&Items[2]));
    EXPECT_EQ(nullptr, array.pop(&Items[2]));
    EXPECT_EQ(nullptr, array.at(4000000000u));
    EXPECT_EQ(1u, array.size());
    EXPECT_EQ(nullptr, array.peek(10));  // a read makes the index part of the array
    EXPECT_EQ(10, array.getMaxIndex());
}

TEST(FlexArrayTest, TheUsedRangeBeginsAtTheLowestIndex) {
    FlexArray<int*> array;
    for (const int i : {5, 7}) array.set(static_cast<unsigned int>(i), &Items[i]);
    EXPECT_EQ(5, array.getMinIndex());
    EXPECT_EQ(3u, array.size());
    EXPECT_EQ(7, array.find(&Items[7]));
    array.clear();
    array.push(&Items[1]);
    EXPECT_EQ(0, array.getMinIndex());
}

TEST(FlexArrayTest, InsertMovesTheRestUpAndTheLastItemOut) {
    FlexArray<int*> array(false, 1, 8);
    Fill(array, 3);
    array.insert(1, &Items[9]);
    for (int* const item : {&Items[6], &Items[7], &Items[8]}) array.insert(6, item);
    int* const expected[] = {&Items[0], &Items[9], &Items[1], &Items[2], nullptr, nullptr, &Items[8], &Items[7]};
    ASSERT_EQ(8u, array.size());
    for (unsigned int i = 0; i < 8; ++i) EXPECT_EQ(expected[i], array.getArray()[i]) << i;
}

TEST(FlexArrayTest, OwnedItemsAreDeletedOnce) {
    Counted::Live_ = 0;
    FlexArray<const Counted*> array(true, 2);
    for (int i = 0; i < 5; ++i) array.push(new Counted);
    array.set(8, new Counted);
    delete array.pop(0);
    EXPECT_EQ(5, Counted::Live_);
    array.clear();
    EXPECT_EQ(0, Counted::Live_);
    array.setDoArrayDelete(true);
    array.push(new Counted[3]);
    array.clear();
    EXPECT_EQ(0, Counted::Live_);
}
