#include "utils/AuvMath.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cstdint>

using namespace AuvMath;

namespace {

const double DEGREE = PI / 180;
const double IPTS68 = 1 / 1.00024;  // published check values are for this scale, some functions take ITS-90

}  // namespace

TEST(AuvMathTest, FlipsBytes) {
    EXPECT_EQ(char(5), FlipEndian(char(5)));
    EXPECT_EQ(0x3412, FlipEndian<unsigned short>(0x1234));
    EXPECT_EQ(0x78563412, FlipEndian(0x12345678));
    EXPECT_EQ(0xEFCDAB8967452301ul, FlipEndian(0x0123456789ABCDEFul));
    EXPECT_EQ(1.5, FlipEndian(FlipEndian(1.5)));
    EXPECT_NE(1.5f, FlipEndian(1.5f));
}

TEST(AuvMathTest, LimitsTakeTheirBoundsInEitherOrder) {
    EXPECT_EQ(5, Limit(5, 10, 0));
    EXPECT_EQ(10, Limit(15, 10, 0));
    EXPECT_EQ(-1.0f, Limit(-3.0f, -1.0f, 1.0f));
    EXPECT_EQ(3u, Limit(1u, 3u, 9u));
    EXPECT_TRUE(InLimit(0.5, 1.0, 0.0));
    EXPECT_TRUE(InLimit(1, 1, 0));
    EXPECT_FALSE(InLimit(2, 1, 0));
    for (int place = 0; place < 3; ++place) {
        double args[] = {0.5, 0, 1};
        args[place] = NAN;
        EXPECT_TRUE(IsNaN(Limit(args[0], args[1], args[2])));
        EXPECT_FALSE(InLimit(args[0], args[1], args[2]));
    }
}

TEST(AuvMathTest, SignsAndNaN) {
    EXPECT_EQ(-1, Sign(-7));
    EXPECT_EQ(1.0f, Sign(1e-30f));
    EXPECT_EQ(0.0, Sign(-0.0));
    EXPECT_TRUE(IsNaN(Sign(double(NAN))));
    EXPECT_EQ(0.0, NanZero(double(NAN)));
    EXPECT_EQ(-2.0f, NanZero(-2.0f));
}

TEST(AuvMathTest, TruncateSaturates) {
    EXPECT_EQ(-1, Truncate<int>(-1.9));
    EXPECT_EQ(INT_MAX, Truncate<int>(1e300));
    EXPECT_EQ(INT_MIN, Truncate<int>(-INFINITY));
    EXPECT_EQ(0, Truncate<int>(NAN));
    EXPECT_EQ(255, Truncate<unsigned char>(256.0));
    EXPECT_EQ(0, Truncate<unsigned short>(-1.0));
}

TEST(AuvMathTest, LooksUpTables) {
    const double table[] = {0, 10, 20, 30};
    struct Row {
        double x_;
        int index_;
    };
    static const Row ROWS[] = {{15, 1}, {10, 1}, {30, 3}, {31, -1}, {-0.1, -1}, {0, 0}, {NAN, -1}};
    for (const Row& row : ROWS) EXPECT_EQ(row.index_, FindLtEqIndex(table, row.x_, 0, 3)) << row.x_;
    EXPECT_EQ(-1, FindLtEqIndex(table, 5.0, 1, 3));
    EXPECT_EQ(-1, FindLtEqIndex(table, 5.0, 0, -1));
}

TEST(AuvMathTest, InterpolatesAlongEveryAxis) {
    EXPECT_EQ(15.0, Interpolate1D(0.5, 10.0, 20.0, 0.0, 1.0));
    EXPECT_EQ(30.0f, Interpolate1D(2.0f, 10.0f, 20.0f, 0.0f, 1.0f));
    EXPECT_TRUE(IsNaN(Interpolate1D(1.0, 10.0, 20.0, 1.0, 1.0)));
    // Corner values 8x + 4y + 2z + w: each axis shows in the result.
    const double cells[2][2][2][2] = {{{{0, 1}, {2, 3}}, {{4, 5}, {6, 7}}}, {{{8, 9}, {10, 11}}, {{12, 13}, {14, 15}}}};
    EXPECT_DOUBLE_EQ(8 * 0.5 + 4 * 0.25 + 2 * 0.125 + 0.75, Interpolate4D(cells, 0.5, 0.25, 0.125, 0.75));
    EXPECT_DOUBLE_EQ(4 * 0.5 + 2 * 0.25 + 0.125, Interpolate3D(cells[0], 0.5, 0.25, 0.125));
    EXPECT_DOUBLE_EQ(2 * 0.5 + 0.25, Interpolate2D(cells[0][0], 0.5, 0.25));
}

TEST(AuvMathTest, RoundsAndWraps) {
    EXPECT_EQ(3.0, Round(2.5, 1.0));
    EXPECT_EQ(-3.0, Round(-2.5, 1.0));
    EXPECT_EQ(1.25f, Round(1.26f, 0.25f));
    EXPECT_TRUE(IsNaN(Round(1.0, 0.0)));
    EXPECT_NEAR(-PI / 2, ModPi(3 * PI / 2), 1e-15);
    EXPECT_EQ(-PI, ModPi(PI));
    EXPECT_EQ(static_cast<float>(-PI), ModPi(static_cast<float>(PI)));
    EXPECT_EQ(10.0, NormalizeAngle(370.0, 0.0, 360.0));
    EXPECT_EQ(350.0f, NormalizeAngle(-10.0f, 0.0f, 360.0f));
    EXPECT_EQ(-180.0, NormalizeAngle(180.0, -180.0, 180.0));
    EXPECT_TRUE(IsNaN(ModPi(double(NAN))));
    EXPECT_TRUE(IsNaN(NormalizeAngle(double(NAN), 0.0, 1.0)));
}

TEST(AuvMathTest, PointsInAreas) {
    EXPECT_TRUE(TriangleContains(1, 1, 0, 0, 4, 0, 0, 4));
    EXPECT_TRUE(TriangleContains(1, 1, 0, 4, 4, 0, 0, 0));
    EXPECT_TRUE(TriangleContains(2, 2, 0, 0, 4, 0, 0, 4));
    EXPECT_FALSE(TriangleContains(3, 3, 0, 0, 4, 0, 0, 4));

    const float x[] = {0, 4, 4, 2, 0};  // a square with a notch from above
    const float y[] = {0, 0, 4, 1, 4};
    EXPECT_TRUE(AreaContains(0.5f, 2, 5, x, y));
    EXPECT_TRUE(AreaContains(3.5f, 2, 5, x, y));
    EXPECT_FALSE(AreaContains(2, 2, 5, x, y));
    EXPECT_FALSE(AreaContains(5, 2, 5, x, y));
    EXPECT_FALSE(AreaContains(0, 0, 0, x, y));
}

TEST(AuvMathTest, AnglesAndUnitVectorsAreInverse) {
    for (float azimuth : {-3.0f, -1.0f, 0.0f, 2.0f}) {
        for (float elevation : {-1.5f, 0.0f, 0.7f}) {
            std::array<double, 3> v;
            float a, e;
            AzimuthAndElevationToUnitVector(azimuth, elevation, v);
            UnitVectorToAzimuthAndElevation(v, a, e);
            EXPECT_NEAR(1, std::hypot(v[0], v[1], v[2]), 1e-6);
            EXPECT_NEAR(azimuth, a, 1e-5);
            EXPECT_NEAR(elevation, e, 1e-5);
        }
    }
    std::array<float, 3> east;
    AzimuthAndElevationToUnitVector(static_cast<float>(PI / 2), 0, east);
    EXPECT_NEAR(1, east[1], 1e-6);
}

// The check values that were published with the formulas.
TEST(AuvMathTest, Seawater) {
    EXPECT_NEAR(9712.653, OceanDepth(1e8, 30 * DEGREE), 5e-4);
    EXPECT_NEAR(1731.995, SoundSpeed(40, 40 * IPTS68, 10000), 5e-4);
    EXPECT_NEAR(40, PracticalSalinity(1.888091, 40 * IPTS68, 10000), 5e-6);
    EXPECT_NEAR(35, PracticalSalinity(1, 15 * IPTS68, 0), 5e-7);
    EXPECT_NEAR(1027.67547, Density(35, 5, 0), 5e-6);
    EXPECT_NEAR(1062.53817, Density(35, 25, 10000), 5e-6);
    EXPECT_NEAR(1044.12802, Density(0, 5, 10000), 5e-6);
    EXPECT_NEAR(22185.93358, BulkModulus(35, 5, 0), 5e-6);
    EXPECT_NEAR(27108.94504, BulkModulus(35, 25, 10000), 5e-6);
    EXPECT_NEAR(274.610, Oxsol(35, 10), 5e-4);
}

// Without the step from the standard ocean to the common ones, the pressure is the inverse of the depth.
TEST(AuvMathTest, PressureFollowsDepth) {
    for (double pressure : {1e6, 1e7, 5e7, 1e8}) {
        for (double degrees : {0.0, 45.0, 80.0}) {
            const double depth = OceanDepth(pressure, degrees * DEGREE);
            const double toCommonOceans = 6.2 * depth + 1e4 * depth / (depth + 100);
            EXPECT_NEAR(pressure - toCommonOceans, OceanPressure(depth, degrees * DEGREE), 2000) << degrees;
        }
    }
    EXPECT_EQ(0, OceanPressure(0, 1));
}

TEST(AuvMathTest, LowSalinitiesJoinTheScaleWithoutAStep) {
    for (double temperature : {0.0, 15.0, 30.0}) {
        EXPECT_NEAR(1, HillRatioAtSP2(temperature), 3e-4);
        double below = 0.04, above = 0.09;  // conductivity ratios on either side of salinity 2
        while (above - below > 1e-12) {
            const double middle = (below + above) / 2;
            (PracticalSalinity(middle, temperature, 0) < 2 ? below : above) = middle;
        }
        EXPECT_NEAR(PracticalSalinity(below, temperature, 0), PracticalSalinity(above, temperature, 0), 1e-9);
        EXPECT_NEAR(0, PracticalSalinity(0, temperature, 0), 1e-9);
    }
}
