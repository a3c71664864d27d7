#include "data/Location.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/Point3D.h"
#include "units/Units.h"
#include "utils/AuvMath.h"

static Location Degrees(double lat, double lon) {
    return Location(Units::DEGREE, lat, lon);
}

static void ExpectAt(double lat, double lon, const Location& location, double tolerance) {
    EXPECT_NEAR(lat, location.getLat(Units::DEGREE), tolerance);
    EXPECT_NEAR(lon, location.getLon(Units::DEGREE), tolerance);
}

static const double QUARTER = AuvMath::PI / 2 * Location::EARTH_RADIUS;  // pole to equator, metres
static const Location HARBOUR = Degrees(36.8, -121.79);

TEST(LocationTest, HoldsItsOwnAnglesInAUnit) {
    Location location;
    location.setLat(Units::DEGREE, 36.8);
    EXPECT_TRUE(location.isNan());
    location.setLon(Units::DEGREE, -121.79);
    EXPECT_EQ(Str("[36.800000,-121.790000]"), location.toString(Units::DEGREE));
    double angle = 0;
    EXPECT_TRUE(location.copyTo(Units::DEGREE, angle, 1));
    EXPECT_NEAR(-121.79, angle, 1e-12);
    EXPECT_FALSE(location.copyTo(Units::DEGREE, angle, 2));

    Location original = Degrees(1, 2);
    Location copy(original);
    location = original;
    original.setLat(Units::DEGREE, 50);
    ExpectAt(1, 2, copy, 1e-12);
    ExpectAt(1, 2, location, 1e-12);
    ExpectAt(51, 4, original + copy, 1e-12);
    ExpectAt(49, 0, original - copy, 1e-12);
}

TEST(LocationTest, DistancesAndBearingsOnTheSphere) {
    static const struct {
        double fromLat_, fromLon_, toLat_, toLon_, distance_, bearing_;  // quarters of the sphere, degrees
    } CASES[] = {
        {0, 0, 90, 0, 1, 0},     {0, 0, 0, 90, 1, 90},  {0, 0, -90, 0, 1, 180},
        {0, 0, 0, -90, 1, 270},  {0, 0, 0, 180, 2, 90}, {0, 179, 0, -179, 2 / 90.0, 90},
        {45, 90, 45, -90, 1, 0},
    };
    for (const auto& c : CASES) {
        double distance = 0;
        double bearing = 0;
        Location::CalcVector(Degrees(c.fromLat_, c.fromLon_), Degrees(c.toLat_, c.toLon_), distance, bearing);
        EXPECT_NEAR(c.distance_ * QUARTER, distance, 1e-2) << c.toLat_ << ' ' << c.toLon_;
        EXPECT_NEAR(c.bearing_, Units::DEGREE.getScaled(bearing), 1e-9) << c.toLat_ << ' ' << c.toLon_;
    }
}

TEST(LocationTest, AtBearingUndoesDistanceAndBearing) {
    for (double degrees = 0; degrees < 360; degrees += 30) {
        const double bearing = Units::DEGREE.getSI(degrees);
        const Location there = HARBOUR.atBearing(bearing, 50000);
        EXPECT_NEAR(50000, HARBOUR.getDistance(there), 1e-5);
        EXPECT_NEAR(50000, HARBOUR.getDistanceFast(there), 50);
        EXPECT_NEAR(std::cos(bearing), std::cos(HARBOUR.getBearing(there)), 1e-9);
        EXPECT_NEAR(50000 * std::cos(bearing), Location::NorthingsDelta(HARBOUR, there), 200);
        EXPECT_NEAR(50000 * std::sin(bearing), Location::EastingsDelta(HARBOUR, there), 200);
    }
    ExpectAt(0, -179, Degrees(0, 179).atBearing(AuvMath::PI / 2, QUARTER / 45), 1e-9);
    EXPECT_NEAR(QUARTER / 45, Degrees(0, 179).getDistanceFast(Degrees(0, -179)), 1e-3);
}

// Flinders Peak to Buninyong, the published worked example of the direct formula on an ellipsoid of nearly this shape
// (GRS80), and the length of a quarter meridian.
TEST(LocationTest, AtBearingOnTheEllipsoid) {
    const double bearing = Units::DEGREE.getSI(306 + 52 / 60.0 + 5.37 / 3600);
    ExpectAt(-(37 + 39 / 60.0 + 10.15611 / 3600), 143 + 55 / 60.0 + 35.38388 / 3600,
             Location::AtBearingEllipsoid(
                 Degrees(-(37 + 57 / 60.0 + 3.72030 / 3600), 144 + 25 / 60.0 + 29.52440 / 3600), bearing, 54972.271),
             2e-8);
    EXPECT_NEAR(90, Location::AtBearingEllipsoid(Degrees(0, 0), 0, 10001965.729).getLat(Units::DEGREE), 1e-8);
    EXPECT_TRUE(Location::AtBearingEllipsoid(Location(), 0, 1).isNan());
}

TEST(PointTest, AnglesMakeAUnitVectorAndBack) {
    Point3D vector;
    AuvMath::AzimuthAndElevationToUnitVector(2.0f, -0.5f, vector);
    float azimuth = 0;
    float elevation = 0;
    AuvMath::UnitVectorToAzimuthAndElevation(vector, azimuth, elevation);
    EXPECT_FLOAT_EQ(2.0f, azimuth);
    EXPECT_FLOAT_EQ(-0.5f, elevation);
    const Point6D pose(Point3D(1, 2, 3), Point3D(4, 5, 6));
    double value = 0;
    EXPECT_TRUE(pose.copyTo(Units::METER, value, 5));
    EXPECT_EQ(6, value);
    EXPECT_FALSE(pose.copyTo(Units::METER, value, 6));
}
