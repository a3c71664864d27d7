#include "units/UnitRegistry.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "units/Units.h"

namespace {

// A unit found while other files' statics are built: the catalogue comes before all of them.
const Unit* const FOUND_BEFORE_MAIN = UnitRegistry::FindUnit("matlab_time");

}  // namespace

TEST(UnitRegistryTest, IsCompleteBeforeMain) {
    EXPECT_EQ(&Units::MATLAB_TIME, FOUND_BEFORE_MAIN);
}

TEST(UnitRegistryTest, FindsByNameAndAbbreviation) {
    EXPECT_EQ(&Units::METER, UnitRegistry::FindUnit("meter"));
    EXPECT_EQ(&Units::METER, UnitRegistry::FindUnit("m"));
    EXPECT_EQ(&Units::LITER, UnitRegistry::FindUnit("L"));
    EXPECT_EQ(&Units::LITRE, UnitRegistry::FindUnit("litre"));
    EXPECT_EQ(&Units::ANGULAR_DEGREE, UnitRegistry::FindUnit("arcdeg"));
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
    EXPECT_EQ("Duplicate unit name: meter\n", testing::internal::GetCapturedStderr());
    EXPECT_EQ(&Units::METER, UnitRegistry::FindUnit("meter"));
    EXPECT_EQ(&again, UnitRegistry::FindUnit("fresh"));

    testing::internal::CaptureStderr();
    static const Unit other("other", "m", Units::SECOND, 2, 0);
    EXPECT_EQ("Duplicate unit abbreviation: m\n", testing::internal::GetCapturedStderr());
    EXPECT_EQ(&Units::METER, UnitRegistry::FindUnit("m"));
    EXPECT_EQ(&other, UnitRegistry::FindUnit("other"));

    testing::internal::CaptureStderr();
    static const Unit alike("metre", "m", Units::METER, 1, 0);
    static const Unit oneKey("one", "one", NO_TYPE);
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
    EXPECT_EQ(&alike, UnitRegistry::FindUnit("metre"));
    EXPECT_EQ(&oneKey, UnitRegistry::FindUnit("one"));
}
