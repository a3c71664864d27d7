#pragma once

#include "Vehicle.h"

// What the vehicle is asked to do: it waits at the surface for a GPS fix, yo-yos through the upper ocean along a curved
// track, and comes up again. Every stretch is a mission with a name of its own.
class MissionPlan {
public:
    enum Phase { AT_SURFACE = 0, YOYO = 1, COMING_UP = 2 };

    // A mission's running value changed: 0 stopped, -1 preempted, else the loop.
    struct Change {
        const char* mission_;
        int running_;
    };
    static const int MAX_CHANGES = 2;

    // Decides about the next step after looking at where the vehicle is. The answers below hold until the next call.
    void step(const VehicleState& state);

    Phase phase() const { return phase_; }
    const Guidance& guidance() const { return guidance_; }             // where the vehicle has to go
    const char* mission() const;                                       // the one that runs
    int changeCount() const { return changeCount_; }                   // of this step
    const Change& change(int index) const { return changes_[index]; }  // index below changeCount, not checked
    bool hasFix() const { return hasFix_; }                            // a GPS fix came in this step
    bool phaseBegan() const { return phaseBegan_; }                    // in this step

private:
    void enter(Phase phase, const VehicleState& state);
    void stay(const VehicleState& state);
    void turnYoYo(const VehicleState& state);
    void note(const char* mission, int running);

    Phase phase_ = AT_SURFACE;
    Guidance guidance_;
    double phaseStart_ = 0;  // seconds of the vehicle
    int dive_ = 0;           // how many began
    int loop_ = 0;           // legs of the running mission
    bool started_ = false;
    bool fixTaken_ = false;  // at this surfacing
    bool hasFix_ = false;
    bool phaseBegan_ = false;
    Change changes_[MAX_CHANGES] = {};
    int changeCount_ = 0;
};
