#pragma once

#include "Random.h"

// Where the vehicle is asked to go.
struct Guidance {
    double depth_ = 0;    // m
    double speed_ = 0;    // m/s through the water
    double yawRate_ = 0;  // rad/s
};

// The vehicle's motion and machinery. Angles in radians, everything else in SI units unless a comment says otherwise.
struct VehicleState {
    double seconds_ = 0;  // since the dive began
    double depth_ = 0;
    double depthRate_ = 0;  // down is positive
    double pitch_ = 0;      // nose up is positive
    double pitchRate_ = 0;
    double roll_ = 0;
    double rollRate_ = 0;
    double heading_ = 0;  // clockwise from north
    double yawRate_ = 0;
    double speed_ = 0;      // through the water
    double northRate_ = 0;  // over ground
    double eastRate_ = 0;
    double latitude_ = 0;
    double longitude_ = 0;
    double distance_ = 0;   // made over ground
    double seaFloor_ = 0;   // depth of the sea floor below the vehicle
    double propeller_ = 0;  // rad/s
    double elevator_ = 0;
    double rudder_ = 0;
    double mass_ = 0;      // position of the moved battery, fore is positive
    double buoyancy_ = 0;  // m3 of oil outside
    double current_ = 0;   // A drawn from the battery
    double charge_ = 0;    // A s left in the battery
    double voltage_ = 0;

    bool isAtSurface() const { return depth_ < 0.6; }       // the antenna is out of the water
    double altitude() const { return seaFloor_ - depth_; }  // m above the sea floor
};

// Follows guidance with the lags of a slow, torpedo-shaped vehicle in a steady drift.
class Vehicle {
public:
    static const double FULL_CHARGE;  // A s

    explicit Vehicle(Random& random);                     // borrowed
    void step(double seconds, const Guidance& guidance);  // seconds above 0
    const VehicleState& state() const { return state_; }

private:
    void stepVertical(double seconds, const Guidance& guidance);
    void stepHorizontal(double seconds, const Guidance& guidance);
    void stepMachinery(double seconds, const Guidance& guidance);

    Random& random_;
    const double driftNorth_;  // m/s of the water over ground
    const double driftEast_;
    VehicleState state_;
};
