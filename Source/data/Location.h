#pragma once

#include "data/I1D.h"
#include "utils/Str.h"

// A place on the earth: latitude (north positive) and longitude (east positive), NaN while not known.
// Without a unit an angle is in radians and a distance in metres. Bearings run clockwise from north, 0 to 2 pi.
// No angle is checked or wrapped on the way in; NaN makes NaN of what is computed from it. The sphere has EARTH_RADIUS;
// only AtBearingEllipsoid takes the flattening into account.
class Location : public I1D<double> {
public:
    static constexpr double EARTH_RADIUS = 6371000.0;  // metres
    static constexpr double EARTH_RADIUS_INVERTED = 1 / EARTH_RADIUS;

    Location();  // not a number
    // Both angles are in the unit.
    Location(const Unit& unit, double lat, double lon);
    Location(const Location& other);
    Location& operator=(const Location& other);

    unsigned int size() const override { return 2; }
    const double* data() const override { return value_; }

    // The unit is one of angles.
    double getLat(const Unit& unit) const { return unit.getScaled(lat_); }
    double getLon(const Unit& unit) const { return unit.getScaled(lon_); }
    void setLat(const Unit& unit, double lat) { value_[0] = unit.getSI(lat); }
    void setLon(const Unit& unit, double lon) { value_[1] = unit.getSI(lon); }
    bool isNan() const;  // either angle

    // Angle by angle, not wrapped.
    Location& operator+=(const Location& other);
    Location& operator-=(const Location& other);
    Location operator+(const Location& other) const { return Location(*this) += other; }
    Location operator-(const Location& other) const { return Location(*this) -= other; }

    // Along the great circle, by the haversine formula. R. W. Sinnott, Sky and Telescope 68 (1984).
    static double GetDistance(const Location& from, const Location& to);
    double getDistance(const Location& to) const { return GetDistance(*this, to); }
    // On the plane that touches the sphere halfway: below 0.1% off up to 100 km away from the poles.
    static double GetDistanceFast(const Location& from, const Location& to);
    double getDistanceFast(const Location& to) const { return GetDistanceFast(*this, to); }
    // Of the great circle, where it begins.
    static double GetBearing(const Location& from, const Location& to);
    double getBearing(const Location& to) const { return GetBearing(*this, to); }
    static void CalcVector(const Location& from, const Location& to, double& distance, double& bearing);  // both

    // Where the great circle that begins at the bearing is after the distance; the longitude comes in [-pi, pi).
    static Location AtBearing(const Location& from, double bearing, double distance);
    Location atBearing(double bearing, double distance) const { return AtBearing(*this, bearing, distance); }
    // The same along the geodesic of the WGS-84 ellipsoid. T. Vincenty, Survey Review 23, 176 (1975), direct formula;
    // axis and flattening: NIMA TR8350.2 (2000).
    static Location AtBearingEllipsoid(const Location& from, double bearing, double distance);

    // Metres north and east, negative to the south and west, on the plane of GetDistanceFast.
    static double NorthingsDelta(const Location& from, const Location& to);
    static double EastingsDelta(const Location& from, const Location& to);
    static void Delta(const Location& from, const Location& to, double& northings, double& eastings);

    static double HavSin(double angle);  // the haversine, (sin(angle / 2)) squared

    Str toString(const Unit& unit) const;  // "[36.800000,-121.790000]"; "[nan,nan]" while not known

private:
    double value_[2];  // latitude and longitude, radians

public:
    const double& lat_ = value_[0];
    const double& lon_ = value_[1];
};
