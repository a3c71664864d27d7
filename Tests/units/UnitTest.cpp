#include "units/Unit.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "units/Units.h"

// 16777217 needs one bit more than a float has: the product is rounded before the addend comes.
TEST(UnitTest, FloatsAreRoundedAfterEachStep) {
    static const Unit odd("odd_metre", "odd m", Units::METER, 16777217.0, 1.0);
    EXPECT_EQ(16777216.0f, odd.getSI(1.0f));
    EXPECT_EQ(16777218.0, odd.getSI(1.0));
}

TEST(UnitTest, IntegersAreTruncatedAndSaturate) {
    EXPECT_EQ(-1, Units::MILLIMETER.getSI(-1999));
    EXPECT_EQ(INT_MIN, Units::GIGABYTE.getSI(INT_MIN));
}

TEST(UnitTest, EqualUnitsConvertAlike) {
    EXPECT_EQ(Units::LITER, Units::LITRE);
    EXPECT_EQ(Units::EPOCH_SECOND, Units::SECOND);
    EXPECT_NE(Units::KELVIN, Units::CELSIUS);
    static const Unit noNumber("no_number", "no number", Units::METER, 1, NAN);
    EXPECT_NE(noNumber, noNumber);
}
