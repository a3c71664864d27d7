#include "utils/FlexArray.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/Counted.h"

class NeverDefined;

// Whether it is in place is seen by address only.
static int Items[64];

static void Fill(FlexArray<int*>& array, int count) {
    for (int i = 0; i < count; ++i) array.push(&Items[i]);
}

TEST(FlexArrayTest, GrowsByDoublingUpToItsCeiling) {
    FlexArray<int*> array(false, 2, 8);
    Fill(array, 8);
    EXPECT_EQ(8u, array.size());
    array.push(&Items[8]);
    array.set(4000000000u, &Items[9]);
    EXPECT_EQ(8u, array.size());
    EXPECT_EQ(&Items[7], array.peek(-1));
    EXPECT_EQ(-1, array.resolveIndex(8));
}

TEST(FlexArrayTest, ACeilingBetweenTwoDoublingsIsNotReached) {
    FlexArray<int*> array(false, 2, 7);
    Fill(array, 7);
    EXPECT_EQ(4u, array.size());
}

TEST(FlexArrayTest, AReadMakesTheIndexPartOfTheArrayButAtDoesNot) {
    FlexArray<int*> array;
    Fill(array, 3);
    EXPECT_EQ(nullptr, array.at(10));
    EXPECT_EQ(nullptr, array.at(4000000000u));
    EXPECT_EQ(3u, array.size());
    EXPECT_EQ(nullptr, array.peek(10));
    EXPECT_EQ(10, array.getMaxIndex());
    EXPECT_EQ(11u, array.size());
}

TEST(FlexArrayTest, NegativeIndicesCountFromTheEnd) {
    FlexArray<int*> array;
    Fill(array, 3);
    EXPECT_EQ(&Items[2], array.get(-1));
    EXPECT_EQ(&Items[0], array.get(-3));
    EXPECT_EQ(nullptr, array.get(-4));
    EXPECT_EQ(-1, array.getIndex(-4));
    EXPECT_EQ(&Items[1], array.pop(-2));
    EXPECT_EQ(&Items[2], array.peek(1));
    EXPECT_EQ(2u, array.size());
}

TEST(FlexArrayTest, TheUsedRangeBeginsAtTheLowestIndex) {
    FlexArray<int*> array;
    EXPECT_EQ(0, array.getMinIndex());
    array.set(5, &Items[5]);
    array.set(7, &Items[7]);
    EXPECT_EQ(5, array.getMinIndex());
    EXPECT_EQ(3u, array.size());
    EXPECT_EQ(7, array.find(&Items[7]));
    EXPECT_EQ(-1, array.find(&Items[6]));
}

TEST(FlexArrayTest, InsertMovesTheRestUp) {
    FlexArray<int*> array(false, 1);
    Fill(array, 3);
    array.insert(1, &Items[9]);
    array.insert(6, &Items[10]);
    int* const expected[] = {&Items[0], &Items[9], &Items[1], &Items[2], nullptr, nullptr, &Items[10]};
    ASSERT_EQ(7u, array.size());
    for (unsigned int i = 0; i < 7; ++i) EXPECT_EQ(expected[i], array.getArray()[i]) << i;
}

TEST(FlexArrayTest, InsertAtTheCeilingLosesTheLastItem) {
    FlexArray<int*> array(false, 4, 4);
    Fill(array, 4);
    array.insert(0, &Items[9]);
    EXPECT_EQ(4u, array.size());
    EXPECT_EQ(&Items[9], array.at(0));
    EXPECT_EQ(&Items[2], array.at(3));
    EXPECT_EQ(-1, array.find(&Items[3]));
}

TEST(FlexArrayTest, PopsByIdentity) {
    FlexArray<int*> array;
    Fill(array, 3);
    EXPECT_EQ(&Items[1], array.pop(&Items[1]));
    EXPECT_EQ(nullptr, array.pop(&Items[1]));
    EXPECT_EQ(2u, array.size());
}

TEST(FlexArrayTest, WhatIsWrittenPastTheCeilingIsGone) {
    FlexArray<int*> array(false, 4, 4);
    array[2] = &Items[2];
    array[4] = &Items[4];
    EXPECT_EQ(&Items[2], array[2]);
    EXPECT_EQ(nullptr, array[4]);
    EXPECT_EQ(nullptr, array[4000000000u]);
}

TEST(FlexArrayTest, ClearLeavesItAsConstructed) {
    FlexArray<int*> array;
    array.set(5, &Items[5]);
    array.clear();
    EXPECT_TRUE(array.isEmpty());
    array.push(&Items[1]);
    EXPECT_EQ(0, array.getMinIndex());
    EXPECT_EQ(1u, array.size());
}

TEST(FlexArrayTest, OwnedItemsAreDeletedOnce) {
    Counted::Live_ = 0;
    {
        FlexArray<const Counted*> array(true, 2);
        for (int i = 0; i < 5; ++i) array.push(new Counted);
        array.set(8, new Counted);
        delete array.pop(0);
        EXPECT_EQ(5, Counted::Live_);
        array.clear();
        EXPECT_EQ(0, Counted::Live_);
        array.push(new Counted);
    }
    EXPECT_EQ(0, Counted::Live_);
}

TEST(FlexArrayTest, OwnedItemsMayBeArrays) {
    Counted::Live_ = 0;
    {
        FlexArray<Counted*> array(true);
        array.setDoArrayDelete(true);
        array.push(new Counted[3]);
    }
    EXPECT_EQ(0, Counted::Live_);
}

TEST(FlexArrayTest, BorrowedItemsMayBeOfAnUnknownClass) {
    FlexArray<const NeverDefined*> array;
    const NeverDefined* const item = reinterpret_cast<const NeverDefined*>(Items);
    array.push(item);
    array.clear();
    array.push(item);
    EXPECT_EQ(item, array[0]);
}

TEST(FlexArrayTest, TheUntypedArrayStartsWithoutSlotsAndReleasesWithFree) {
    FlexArrayBase array(true, 4, 16);
    array.set(6, malloc(1));
    EXPECT_EQ(1u, array.size());
    EXPECT_EQ(nullptr, array.peek(7));
    EXPECT_EQ(nullptr, array.peek(16));
}
