#include "data/Location.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "units/Units.h"
#include "utils/AuvMath.h"
#include "utils/TextBuffer.h"

static const double TURN = 2 * AuvMath::PI;

Location::Location() : value_{std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()} {}

Location::Location(const Unit& unit, double lat, double lon) : value_{unit.getSI(lat), unit.getSI(lon)} {}

// The references stay with their own object.
Location::Location(const Location& other) : I1D<double>(other), value_{other.lat_, other.lon_} {}

Location& Location::operator=(const Location& other) {  // NOLINT(bugprone-unhandled-self-assignment): it is harmless
    std::copy_n(other.value_, size(), value_);
    return *this;
}

bool Location::isNan() const {
    return AuvMath::IsNaN(lat_) || AuvMath::IsNaN(lon_);
}

Location& Location::operator+=(const Location& other) {
    value_[0] += other.lat_;
    value_[1] += other.lon_;
    return *this;
}

Location& Location::operator-=(const Location& other) {
    value_[0] -= other.lat_;
    value_[1] -= other.lon_;
    return *this;
}

double Location::HavSin(double angle) {
    const double half = std::sin(angle / 2);
    return half * half;
}

double Location::GetDistance(const Location& from, const Location& to) {
    const double haversine =
        HavSin(to.lat_ - from.lat_) + std::cos(from.lat_) * std::cos(to.lat_) * HavSin(to.lon_ - from.lon_);
    return 2 * EARTH_RADIUS * std::asin(std::sqrt(AuvMath::Limit(haversine, 0.0, 1.0)));  // rounding may pass 1
}

double Location::GetDistanceFast(const Location& from, const Location& to) {
    return std::hypot(NorthingsDelta(from, to), EastingsDelta(from, to));
}

double Location::GetBearing(const Location& from, const Location& to) {
    const double dLon = to.lon_ - from.lon_;
    const double east = std::sin(dLon) * std::cos(to.lat_);
    const double north =
        std::cos(from.lat_) * std::sin(to.lat_) - std::sin(from.lat_) * std::cos(to.lat_) * std::cos(dLon);
    return AuvMath::NormalizeAngle(std::atan2(east, north), 0.0, TURN);
}

void Location::CalcVector(const Location& from, const Location& to, double& distance, double& bearing) {
    distance = GetDistance(from, to);
    bearing = GetBearing(from, to);
}

Location Location::AtBearing(const Location& from, double bearing, double distance) {
    const double arc = distance * EARTH_RADIUS_INVERTED;
    const double sinLat = std::sin(from.lat_) * std::cos(arc) + std::cos(from.lat_) * std::sin(arc) * std::cos(bearing);
    const double dLon = std::atan2(std::sin(bearing) * std::sin(arc) * std::cos(from.lat_),
                                   std::cos(arc) - std::sin(from.lat_) * sinLat);
    return Location(Units::RADIAN, std::asin(AuvMath::Limit(sinLat, -1.0, 1.0)), AuvMath::ModPi(from.lon_ + dLon));
}

double Location::NorthingsDelta(const Location& from, const Location& to) {
    return EARTH_RADIUS * (to.lat_ - from.lat_);
}

double Location::EastingsDelta(const Location& from, const Location& to) {
    return EARTH_RADIUS * std::cos((from.lat_ + to.lat_) / 2) * AuvMath::ModPi(to.lon_ - from.lon_);
}

void Location::Delta(const Location& from, const Location& to, double& northings, double& eastings) {
    northings = NorthingsDelta(from, to);
    eastings = EastingsDelta(from, to);
}

// The ellipsoid. Names follow Vincenty: u reduced latitude, sigma arc on the auxiliary sphere, alpha azimuth of the
// geodesic at the equator.

namespace {

const double SEMI_MAJOR_AXIS = 6378137.0;  // metres
const double FLATTENING = 1 / 298.257223563;
const double SEMI_MINOR_AXIS = SEMI_MAJOR_AXIS * (1 - FLATTENING);

const double ARC_TOLERANCE = 1e-12;  // radians, some micrometres on the ground
const int MAX_ITERATIONS = 100;      // it settles within about five

// The arc from the distance: the spherical one, corrected until it stands still.
class GeodesicArc {
public:
    GeodesicArc(double distance, double cosSqAlpha, double sigma1) : sigma1_(sigma1) {
        const double uSq = cosSqAlpha * (SEMI_MAJOR_AXIS * SEMI_MAJOR_AXIS / (SEMI_MINOR_AXIS * SEMI_MINOR_AXIS) - 1);
        const double a = 1 + uSq / 16384 * (4096 + uSq * (-768 + uSq * (320 - 175 * uSq)));
        const double b = uSq / 1024 * (256 + uSq * (-128 + uSq * (74 - 47 * uSq)));
        const double spherical = distance / (SEMI_MINOR_AXIS * a);
        sigma_ = spherical;
        for (int i = 0; i < MAX_ITERATIONS; ++i) {
            const double before = sigma_;
            sigma_ = spherical + correction(b);
            if (std::fabs(sigma_ - before) < ARC_TOLERANCE) break;
        }
    }

    double sigma() const { return sigma_; }
    double cos2SigmaM() const { return std::cos(2 * sigma1_ + sigma_); }

private:
    double correction(double b) const {
        const double c = cos2SigmaM();
        const double s = std::sin(sigma_);
        return b * s *
               (c + b / 4 * (std::cos(sigma_) * (2 * c * c - 1) - b / 6 * c * (4 * s * s - 3) * (4 * c * c - 3)));
    }

    const double sigma1_;  // from the equator to the start
    double sigma_;
};

}  // namespace

Location Location::AtBearingEllipsoid(const Location& from, double bearing, double distance) {
    const double u1 = std::atan((1 - FLATTENING) * std::tan(from.lat_));
    const double sinU1 = std::sin(u1);
    const double cosU1 = std::cos(u1);
    const double sinAlpha = cosU1 * std::sin(bearing);
    const double cosSqAlpha = 1 - sinAlpha * sinAlpha;
    const GeodesicArc arc(distance, cosSqAlpha, std::atan2(std::tan(u1), std::cos(bearing)));
    const double sinSigma = std::sin(arc.sigma());
    const double cosSigma = std::cos(arc.sigma());

    const double north = sinU1 * cosSigma + cosU1 * sinSigma * std::cos(bearing);
    const double inward = sinU1 * sinSigma - cosU1 * cosSigma * std::cos(bearing);
    const double lat = std::atan2(north, (1 - FLATTENING) * std::hypot(sinAlpha, inward));

    const double lambda =
        std::atan2(sinSigma * std::sin(bearing), cosU1 * cosSigma - sinU1 * sinSigma * std::cos(bearing));
    const double c = FLATTENING / 16 * cosSqAlpha * (4 + FLATTENING * (4 - 3 * cosSqAlpha));
    const double cos2 = arc.cos2SigmaM();
    const double dLon = lambda - (1 - c) * FLATTENING * sinAlpha *
                                     (arc.sigma() + c * sinSigma * (cos2 + c * cosSigma * (2 * cos2 * cos2 - 1)));
    return Location(Units::RADIAN, lat, AuvMath::ModPi(from.lon_ + dLon));
}

Str Location::toString(const Unit& unit) const {
    static const unsigned int DECIMALS = 6;
    TextBuffer text;
    text.append('[').appendFixed(getLat(unit), DECIMALS);
    text.append(',').appendFixed(getLon(unit), DECIMALS).append(']');
    return text.toStr();
}
