#include "Vehicle.h"

#include <algorithm>
#include <cmath>

#include "data/Location.h"
#include "utils/AuvMath.h"

const double Vehicle::FULL_CHARGE = 420 * 3600.0;

namespace {

const double RADIANS_PER_DEGREE = AuvMath::PI / 180;
const double START_LATITUDE = 21.62 * RADIANS_PER_DEGREE;  // north of the Hawaiian islands
const double START_LONGITUDE = -158.94 * RADIANS_PER_DEGREE;
const double SEA_FLOOR = 130;           // m, with hills on it
const double MAX_PITCH = 0.45;          // rad
const double PITCH_PER_ERROR = 0.06;    // rad of pitch asked for per m of depth error
const double PITCH_LAG = 4;             // s
const double SPEED_LAG = 8;             // s
const double RISE_RATE = 0.05;          // m/s at which a resting vehicle floats up
const double SWELL = 0.12;              // m of vertical motion at the surface
const double SWELL_PERIOD = 7;          // s
const double PROPELLER_PER_SPEED = 31;  // rad/s per m/s
const double HOTEL_LOAD = 1.4;          // A of everything but the propeller
const double EMPTY_VOLTAGE = 13.2;

// The share of the way to a target that a first-order lag covers in a step.
double LagShare(double seconds, double lag) {
    return 1 - std::exp(-seconds / lag);
}

double SeaFloor(const VehicleState& s) {
    return SEA_FLOOR + 18 * std::sin(s.distance_ / 900) + 5 * std::sin(s.distance_ / 170);
}

}  // namespace

Vehicle::Vehicle(Random& random)
    : random_(random), driftNorth_(random.between(-0.08, 0.08)), driftEast_(random.between(-0.08, 0.08)) {
    state_.latitude_ = START_LATITUDE + random.between(-0.002, 0.002);
    state_.longitude_ = START_LONGITUDE + random.between(-0.002, 0.002);
    state_.heading_ = random.between(-AuvMath::PI, AuvMath::PI);
    state_.charge_ = FULL_CHARGE;
    state_.depth_ = 0.3;
}

void Vehicle::step(double seconds, const Guidance& guidance) {
    state_.seconds_ += seconds;
    stepVertical(seconds, guidance);
    stepHorizontal(seconds, guidance);
    stepMachinery(seconds, guidance);
}

void Vehicle::stepVertical(double seconds, const Guidance& guidance) {
    VehicleState& s = state_;
    const double error = guidance.depth_ - s.depth_;
    const double wantedPitch = AuvMath::Limit(-PITCH_PER_ERROR * error, -MAX_PITCH, MAX_PITCH);
    const double pitch = s.pitch_ + (wantedPitch - s.pitch_) * LagShare(seconds, PITCH_LAG) + 0.001 * random_.noise();
    s.pitchRate_ = (pitch - s.pitch_) / seconds;
    s.pitch_ = pitch;
    s.depthRate_ = -s.speed_ * std::sin(s.pitch_) - (s.speed_ < 0.1 ? RISE_RATE : 0);
    s.depth_ += s.depthRate_ * seconds;
    const double surface = 0.25 + SWELL * std::sin(2 * AuvMath::PI * s.seconds_ / SWELL_PERIOD);
    s.depth_ = std::max(s.depth_, surface);
}

void Vehicle::stepHorizontal(double seconds, const Guidance& guidance) {
    VehicleState& s = state_;
    s.speed_ += (guidance.speed_ - s.speed_) * LagShare(seconds, SPEED_LAG);
    s.yawRate_ = guidance.yawRate_ + 0.002 * random_.noise();
    s.heading_ = AuvMath::ModPi(s.heading_ + s.yawRate_ * seconds);
    const double roll = 0.6 * s.yawRate_ + 0.9 * s.roll_ + 0.004 * random_.noise();
    s.rollRate_ = (roll - s.roll_) / seconds;
    s.roll_ = roll;
    const double ahead = s.speed_ * std::cos(s.pitch_);
    s.northRate_ = ahead * std::cos(s.heading_) + driftNorth_;
    s.eastRate_ = ahead * std::sin(s.heading_) + driftEast_;
    s.latitude_ += s.northRate_ * seconds / Location::EARTH_RADIUS;
    s.longitude_ += s.eastRate_ * seconds / (Location::EARTH_RADIUS * std::cos(s.latitude_));
    s.distance_ += std::hypot(s.northRate_, s.eastRate_) * seconds;
    s.seaFloor_ = SeaFloor(s);
}

void Vehicle::stepMachinery(double seconds, const Guidance& guidance) {
    VehicleState& s = state_;
    s.propeller_ = PROPELLER_PER_SPEED * guidance.speed_ + (guidance.speed_ > 0 ? 0.4 * random_.noise() : 0);
    s.elevator_ = AuvMath::Limit(0.8 * (s.pitch_ + PITCH_PER_ERROR * (guidance.depth_ - s.depth_)), -0.26, 0.26);
    s.rudder_ = AuvMath::Limit(3 * guidance.yawRate_ + 0.01 * random_.noise(), -0.26, 0.26);
    s.mass_ += (0.03 * s.pitch_ / MAX_PITCH - s.mass_) * LagShare(seconds, 3 * PITCH_LAG);
    s.buoyancy_ += ((guidance.speed_ > 0 ? 450e-6 : 900e-6) - s.buoyancy_) * LagShare(seconds, 30);
    s.current_ = HOTEL_LOAD + 2.2 * guidance.speed_ * guidance.speed_ * guidance.speed_ + 0.02 * random_.noise();
    s.charge_ -= s.current_ * seconds;
    if (s.charge_ < 0.1 * FULL_CHARGE) s.charge_ = FULL_CHARGE;  // a ship met it
    s.voltage_ = EMPTY_VOLTAGE + 3.4 * s.charge_ / FULL_CHARGE - 0.05 * s.current_;
}
