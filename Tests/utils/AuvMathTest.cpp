#include "utils/AuvMath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

using namespace AuvMath;

namespace {

const double DEGREE = PI / 180;
const double IPTS68 = 1 / 1.00024;  // published check values are for this scale, some functions take ITS-90

}  // namespace

TEST(AuvMathTest, LimitsTakeTheirBoundsInEitherOrder) {
    EXPECT_EQ(10, Limit(15, 10, 0));
    EXPECT_TRUE(InLimit(1, 1, 0));
    for (int place = 0; place < 3; ++place) {
        double args[] = {0.5, 0, 1};
        args[place] = NAN;
        EXPECT_TRUE(IsNaN(Limit(args[0], args[1], args[2])));
        EXPECT_FALSE(InLimit(args[0], args[1], args[2]));
    }
}

TEST(AuvMathTest, Signs) {
    EXPECT_EQ(0.0, Sign(-0.0));
    EXPECT_TRUE(IsNaN(Sign(double(NAN))));
    EXPECT_EQ(0.0, NanZero(double(NAN)));
}

TEST(AuvMathTest, LooksUpTables) {
    const double table[] = {0, 10, 20, 30};
    const std::pair<double, int> rows[] = {{15, 1}, {10, 1}, {30, 3}, {31, -1}, {-0.1, -1}, {0, 0}, {NAN, -1}};
    for (const auto& [x, index] : rows) EXPECT_EQ(index, FindLtEqIndex(table, x, 0, 3)) << x;
    EXPECT_EQ(-1, FindLtEqIndex(table, 5.0, 0, -1));
    const double falling[] = {30, 20, 10, 0};
    EXPECT_EQ(-1, FindLtEqIndex(falling, 15.0, 1, 3));
}

TEST(AuvMathTest, InterpolatesAlongEveryAxis) {
    EXPECT_TRUE(IsNaN(Interpolate1D(1.0, 10.0, 20.0, 1.0, 1.0)));
    // Corner values 8x + 4y + 2z + w: each axis shows in the result.
    const double cells[2][2][2][2] = {{{{0, 1}, {2, 3}}, {{4, 5}, {6, 7}}}, {{{8, 9}, {10, 11}}, {{12, 13}, {14, 15}}}};
    EXPECT_DOUBLE_EQ(8 * 0.5 + 4 * 0.25 + 2 * 0.125 + 0.75, Interpolate4D(cells, 0.5, 0.25, 0.125, 0.75));
}

TEST(AuvMathTest, RoundsAndWraps) {
    EXPECT_EQ(-3.0, Round(-2.5, 1.0));
    EXPECT_TRUE(IsNaN(Round(1.0, 0.0)));
    EXPECT_NEAR(-PI / 2, ModPi(3 * PI / 2), 1e-15);
    EXPECT_EQ(-PI, ModPi(PI));
    EXPECT_EQ(-180.0, NormalizeAngle(180.0, -180.0, 180.0));
    EXPECT_TRUE(IsNaN(NormalizeAngle(double(NAN), 0.0, 1.0)));
}

TEST(AuvMathTest, PointsInAreas) {
    EXPECT_TRUE(TriangleContains(1, 1, 0, 0, 4, 0, 0, 4));
    EXPECT_TRUE(TriangleContains(2, 2, 0, 0, 4, 0, 0, 4));
    EXPECT_FALSE(TriangleContains(3, 3, 0, 0, 4, 0, 0, 4));

    const float x[] = {0, 4, 4, 2, 0};  // a square with a notch from above
    const float y[] = {0, 0, 4, 1, 4};
    EXPECT_TRUE(AreaContains(3.5f, 2, 5, x, y));
    EXPECT_FALSE(AreaContains(2, 2, 5, x, y));
    EXPECT_FALSE(AreaContains(0, 0, 0, x, y));
}

// The check values that were published with the formulas.
TEST(AuvMathTest, Seawater) {
    EXPECT_NEAR(9712.653, OceanDepth(1e8, 30 * DEGREE), 5e-4);
    EXPECT_NEAR(1731.995, SoundSpeed(40, 40 * IPTS68, 10000), 5e-4);
    EXPECT_NEAR(40, PracticalSalinity(1.888091, 40 * IPTS68, 10000), 5e-6);
    EXPECT_NEAR(1062.53817, Density(35, 25, 10000), 5e-6);
    EXPECT_NEAR(274.610, Oxsol(35, 10), 5e-4);
    EXPECT_NEAR(1044.12802, Density(0, 5, 10000), 5e-6);
}

// Without the step from the standard ocean to the common ones, the pressure is the inverse of the depth.
TEST(AuvMathTest, PressureFollowsDepth) {
    for (const double pressure : {1e6, 5e7, 1e8}) {
        const double depth = OceanDepth(pressure, 0.5);
        const double toCommonOceans = 6.2 * depth + 1e4 * depth / (depth + 100);
        EXPECT_NEAR(pressure - toCommonOceans, OceanPressure(depth, 0.5), 2000);
    }
}

TEST(AuvMathTest, LowSalinitiesJoinTheScaleWithoutAStep) {
    EXPECT_NEAR(0, PracticalSalinity(0, 5, 0), 1e-9);
    double below = 0.04, above = 0.09;  // conductivity ratios on either side of salinity 2
    while (above - below > 1e-12) {
        const double middle = (below + above) / 2;
        (PracticalSalinity(middle, 5, 0) < 2 ? below : above) = middle;
    }
    EXPECT_NEAR(PracticalSalinity(below, 5, 0), PracticalSalinity(above, 5, 0), 1e-9);
}
