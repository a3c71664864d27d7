#include "Ocean.h"

#include <algorithm>
#include <cmath>

#include "utils/AuvMath.h"

namespace {

const double THERMOCLINE = 45;                // m
const double CHLOROPHYLL_MAXIMUM = 62;        // m
const double INTERNAL_WAVE = 6;               // m of lift
const double INTERNAL_WAVE_PERIOD = 1500;     // s
const double STANDARD_CONDUCTIVITY = 4.2914;  // S/m of standard seawater at 15 Celsius without pressure

double Square(double x) {
    return x * x;
}

// Rises from 0 to 1 around the middle.
double Ramp(double x, double middle, double width) {
    return 1 / (1 + std::exp((middle - x) / width));
}

// A straight line that meets the Practical Salinity Scale at 35 and 15 Celsius; good to a few percent around there.
double Conductivity(double salinity, double temperature) {
    return STANDARD_CONDUCTIVITY * (salinity / 35) * (1 + 0.0212 * (temperature - 15));
}

}  // namespace

Water Ocean::sense(double depth, double latitude, double seconds) {
    const double lift = INTERNAL_WAVE * std::sin(2 * AuvMath::PI * seconds / INTERNAL_WAVE_PERIOD);
    const double level = depth + lift;  // where this water would stand in a calm sea
    const double below = Ramp(level, THERMOCLINE, 9);
    Water w;
    w.temperature_ = 24.6 - 7.9 * below - 0.01 * level + 0.004 * random_.noise();
    w.salinity_ = 34.7 + 0.5 * below - 0.002 * level + 0.001 * random_.noise();
    w.pressure_ = AuvMath::OceanPressure(depth, latitude) / 10000 + 0.005 * random_.noise();
    w.conductivity_ = Conductivity(w.salinity_, w.temperature_);
    w.density_ = AuvMath::Density(w.salinity_, w.temperature_, w.pressure_);
    w.soundSpeed_ = AuvMath::SoundSpeed(w.salinity_, w.temperature_, w.pressure_);
    w.oxygen_ = AuvMath::Oxsol(w.salinity_, w.temperature_) * (1.02 - 0.25 * below) + 0.2 * random_.noise();
    w.chlorophyll_ = 0.08 + 0.7 * std::exp(-Square((level - CHLOROPHYLL_MAXIMUM) / 14)) + 0.01 * random_.noise();
    w.nitrate_ = std::max(0.0, 9 * Ramp(level, 85, 12) + 0.05 * random_.noise());
    w.light_ = 1600 * std::exp(-0.045 * depth) + 0.5 * random_.uniform();
    w.backscatter_ = 0.0012 + 0.0008 * w.chlorophyll_ + 0.00002 * random_.noise();
    return w;
}
