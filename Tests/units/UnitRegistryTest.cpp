#include "units/UnitRegistry.h"

#include <gtest/gtest.h>

#include "units/Units.h"

// A unit found while other files' statics are built: the catalogue comes before all of them.
static const Unit* const FOUND_BEFORE_MAIN = UnitRegistry::FindUnit("matlab_time");

TEST(UnitRegistryTest, FindsByNameAndAbbreviation) {
    EXPECT_EQ(&Units::MATLAB_TIME, FOUND_BEFORE_MAIN);
    for (const char* key : {"M", "F", "", "mete", "meters", "Meter"}) EXPECT_EQ(nullptr, UnitRegistry::FindUnit(key));
    EXPECT_EQ(nullptr, UnitRegistry::FindUnit(Str("m\0", 2)));
}

TEST(UnitRegistryTest, KeysAreInByteOrder) {
    const unsigned int size = UnitRegistry::Size();
    for (unsigned int i = 1; i < size; ++i) {
        EXPECT_LT(UnitRegistry::GetIndexedKey(i - 1), UnitRegistry::GetIndexedKey(i));
        EXPECT_EQ(UnitRegistry::FindUnit(UnitRegistry::GetIndexedKey(i)), UnitRegistry::GetIndexedUnit(i));
    }
    EXPECT_TRUE(UnitRegistry::GetIndexedKey(size).isEmpty());
    EXPECT_EQ(nullptr, UnitRegistry::GetIndexedUnit(size));
}

TEST(UnitRegistryTest, TakenKeysAreReportedAndSkipped) {
    testing::internal::CaptureStderr();
    static const Unit again("meter", "fresh", Units::SECOND, 2, 0);
    static const Unit other("other", "m", Units::SECOND, 2, 0);
    static const Unit alike("metre", "m", Units::METER, 1, 0);
    static const Unit oneKey("one", "one", NO_TYPE);
    EXPECT_EQ("Duplicate unit name: meter\nDuplicate unit abbreviation: m\n", testing::internal::GetCapturedStderr());
    EXPECT_EQ(&Units::METER, UnitRegistry::FindUnit("meter"));
    EXPECT_EQ(&Units::METER, UnitRegistry::FindUnit("m"));
    EXPECT_EQ(&again, UnitRegistry::FindUnit("fresh"));
    EXPECT_EQ(&other, UnitRegistry::FindUnit("other"));
}
