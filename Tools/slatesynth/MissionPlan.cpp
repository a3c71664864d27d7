#include "MissionPlan.h"

namespace {

const double SURFACE_STAY = 60;      // s
const double FIX_AFTER = 12;         // s at the surface
const double SHALLOW = 6;            // m, the upper turn of the yo-yo
const double DEEP[] = {72, 95, 55};  // m, the lower turn, by dive
const int LEGS = 6;                  // of a yo-yo mission: down, up, down, ...
const int PREEMPTED_EVERY = 3;       // dives
const int PREEMPTED_AT_LEG = 4;
const double CRUISE = 1.0;  // m/s
const double TURN = 0.004;  // rad/s

const char* const SURFACE_MISSION = "SurfaceWatch";
const char* const DIVE_MISSIONS[] = {"YoYoSurvey", "FrontTracking", "PatchMapping"};
const int DIVE_KINDS = 3;

}  // namespace

const char* MissionPlan::mission() const {
    return phase_ == AT_SURFACE ? SURFACE_MISSION : DIVE_MISSIONS[(dive_ - 1) % DIVE_KINDS];
}

void MissionPlan::step(const VehicleState& state) {
    changeCount_ = 0;
    hasFix_ = false;
    phaseBegan_ = false;
    if (started_) {
        stay(state);
    } else {
        started_ = true;
        enter(AT_SURFACE, state);
    }
}

void MissionPlan::stay(const VehicleState& state) {
    const double stayed = state.seconds_ - phaseStart_;
    switch (phase_) {
        case AT_SURFACE:
            hasFix_ = !fixTaken_ && stayed >= FIX_AFTER;
            fixTaken_ = fixTaken_ || hasFix_;
            if (stayed >= SURFACE_STAY) enter(YOYO, state);
            break;
        case YOYO:
            turnYoYo(state);
            break;
        case COMING_UP:
            if (state.isAtSurface()) enter(AT_SURFACE, state);
            break;
    }
}

// The mission that a phase ends stops when the next one starts; the way up still belongs to the dive's mission.
void MissionPlan::enter(Phase phase, const VehicleState& state) {
    const bool stops = phase == YOYO || (phase == AT_SURFACE && dive_ > 0);
    if (stops) note(mission(), 0);
    phase_ = phase;
    phaseBegan_ = true;
    phaseStart_ = state.seconds_;
    if (phase == YOYO) ++dive_;
    if (phase == COMING_UP) {
        guidance_.depth_ = 0;
        return;
    }
    loop_ = 1;
    fixTaken_ = false;
    guidance_.depth_ = phase == YOYO ? DEEP[(dive_ - 1) % DIVE_KINDS] : 0;
    guidance_.speed_ = phase == YOYO ? CRUISE : 0;
    guidance_.yawRate_ = phase == YOYO ? (dive_ % 2 == 0 ? -TURN : TURN) : 0;
    note(mission(), loop_);
}

void MissionPlan::turnYoYo(const VehicleState& state) {
    const bool goesDown = guidance_.depth_ > SHALLOW;
    const bool turned = goesDown ? state.depth_ > guidance_.depth_ - 1 : state.depth_ < SHALLOW + 1;
    if (!turned) return;
    guidance_.depth_ = goesDown ? SHALLOW : DEEP[(dive_ - 1) % DIVE_KINDS];
    ++loop_;
    if (dive_ % PREEMPTED_EVERY == 0 && loop_ == PREEMPTED_AT_LEG) {
        note(mission(), -1);
        enter(COMING_UP, state);
    } else if (loop_ > LEGS) {
        enter(COMING_UP, state);
    } else {
        note(mission(), loop_);
    }
}

void MissionPlan::note(const char* mission, int running) {
    changes_[changeCount_].mission_ = mission;
    changes_[changeCount_].running_ = running;
    ++changeCount_;
}
