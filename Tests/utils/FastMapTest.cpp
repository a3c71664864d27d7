#include "utils/FastMap.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

#include "support/Counted.h"
#include "utils/Str.h"

static int Items[8];

static Str KeyOf(size_t i) {
    return Str(i + 100000, 10);
}

TEST(FastMapTest, GivesNothingForWhatIsAbsent) {
    FastMap<Str, int*> map;
    map.put("depth", &Items[0], false);
    EXPECT_EQ(nullptr, map.getIndexedEntry(1));
    EXPECT_EQ(nullptr, map.popIndexed(1));
    EXPECT_EQ(Str("depth"), map.findKey(&Items[0], "none"));
    EXPECT_EQ(~0, map.findIndex("a"));
    EXPECT_EQ(~1, map.findIndex("z", 0, 100));
}

TEST(FastMapTest, DuplicatesStandInTheOrderOfTheirPuts) {
    FastMap<Str, int*> map(true);
    for (int* item = Items; item < Items + 4; ++item) map.put("depth", item, false);
    for (unsigned int i = 0; i < 4; ++i) EXPECT_EQ(&Items[i], map.getIndexed(i));
}

TEST(FastMapTest, AgreesWithAnOrderedMap) {
    std::mt19937 random(7);
    std::map<std::string, int*> expected;
    FastMap<Str, int*> map;
    for (int i = 0; i < 3000; ++i) {
        const Str key = KeyOf(random() % 300);
        int* const item = &Items[random() % 8];
        if (random() % 3 == 0) {
            EXPECT_EQ(expected.count(key.cStr()) == 0 ? nullptr : expected[key.cStr()], map.pop(key));
            expected.erase(key.cStr());
        } else {
            EXPECT_EQ(expected.emplace(key.cStr(), item).second, map.put(key, item, false));
        }
    }
    ASSERT_EQ(expected.size(), map.size());
    unsigned int index = 0;
    for (const auto& pair : expected) {
        EXPECT_EQ(pair.first, map.getIndexedEntry(index)->getKey().cStr());
        EXPECT_EQ(pair.second, map.getIndexed(index++));
    }
}

TEST(FastMapTest, DeletesTheItemsThatItOwnsAndNoOthers) {
    Counted::Live_ = 0;
    Counted borrowed;
    FastMap<Str, Counted*> map;
    map.put("owned", new Counted, true);
    map.put("borrowed", &borrowed, false);
    map.put("popped", new Counted, true);
    delete map.pop("popped");
    EXPECT_EQ(2, Counted::Live_);
    map.clear();
    EXPECT_EQ(1, Counted::Live_);
}

TEST(FastMapTest, AFullMapLosesItsHighestKeyButNotTheItem) {
    static const unsigned int FULL = FastMap<Str, Counted*>::MAX_CAPACITY;
    Counted::Live_ = 0;
    Counted highest;
    {
        FastMap<Str, Counted*> map;
        for (unsigned int i = 0; i + 1 < FULL; ++i) map.put(KeyOf(i), nullptr, false);
        map.put("y", &highest, true);
        EXPECT_TRUE(map.put("z", nullptr, false));
        EXPECT_EQ(&highest, map.getIndexed(FULL - 1));
        EXPECT_TRUE(map.put("0", nullptr, false));
        EXPECT_LT(map.findIndex("y"), 0);
    }
    EXPECT_EQ(1, Counted::Live_);
}
