#include "units/Unit.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "units/Units.h"

TEST(UnitTest, ConvertsThereAndBack) {
    EXPECT_DOUBLE_EQ(293.15, Units::CELSIUS.getSI(20.0));
    EXPECT_DOUBLE_EQ(-273.15, Units::CELSIUS.getScaled(0.0));
    EXPECT_DOUBLE_EQ(273.15, Units::FAHRENHEIT.getSI(32.0));
    EXPECT_DOUBLE_EQ(0.0, Units::MATLAB_TIME.getSI(719529.0));
    EXPECT_FLOAT_EQ(1.852f, Units::KILOMETER.getScaled(Units::NAUTICAL_MILE.getSI(1.0f)));
    EXPECT_EQ(1e300, Units::METER.getSI(1e300));
    EXPECT_TRUE(std::isnan(Units::CELSIUS.getSI(NAN)));
}

// 16777217 needs one bit more than a float has: the product is rounded before the addend comes.
TEST(UnitTest, FloatsAreRoundedAfterEachStep) {
    static const Unit odd("odd_metre", "odd m", Units::METER, 16777217.0, 1.0);
    EXPECT_EQ(16777216.0f, odd.getSI(1.0f));
    EXPECT_EQ(16777218.0, odd.getSI(1.0));
}

TEST(UnitTest, IntegersAreTruncatedAndSaturate) {
    EXPECT_EQ(1, Units::MILLIMETER.getSI(1999));
    EXPECT_EQ(-1, Units::MILLIMETER.getSI(-1999));
    EXPECT_EQ(2000, Units::MILLIMETER.getScaled(2));
    EXPECT_EQ(INT_MAX, Units::MILLIMETER.getScaled(INT_MAX));
    EXPECT_EQ(INT_MIN, Units::GIGABYTE.getSI(INT_MIN));
}

TEST(UnitTest, EqualUnitsConvertAlike) {
    EXPECT_EQ(Units::LITER, Units::LITRE);
    EXPECT_EQ(Units::EPOCH_SECOND, Units::SECOND);
    EXPECT_NE(Units::KELVIN, Units::CELSIUS);
    EXPECT_NE(Units::METER, Units::SECOND);
    static const Unit noNumber("no_number", "no number", Units::METER, 1, NAN);
    EXPECT_NE(noNumber, noNumber);
    EXPECT_TRUE(std::isnan(noNumber.getSI(1.0)));
}

TEST(UnitTest, StorageTypeComesFromTheBase) {
    EXPECT_EQ(FLOAT3, Units::METER.getDefaultDataType());
    EXPECT_EQ(DOUBLE4, Units::DEGREE.getDefaultDataType());
    EXPECT_EQ(&Units::RADIAN, &Units::DEGREE.getBaseUnit());
    EXPECT_EQ(&Units::RADIAN, &Units::RADIAN.getBaseUnit());
}
