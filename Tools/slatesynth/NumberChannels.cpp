#include <algorithm>
#include <cmath>
#include <limits>

#include "Channels.h"
#include "MissionPlan.h"
#include "units/Units.h"
#include "utils/AuvMath.h"

namespace {

typedef const Readings& In;

const double ALTIMETER_RANGE = 60;  // m
const double BATTERY_CELLS = 4;     // in series, of a stick
const int BINS = 24;                // of the current profiler

double Degrees(double radians) {
    return radians * 180 / AuvMath::PI;
}

double Altitude(In r) {
    const double altitude = r.vehicle_.altitude();
    return altitude < ALTIMETER_RANGE ? altitude + 0.02 * r.random_.noise() : std::numeric_limits<double>::quiet_NaN();
}

// The water flows slower the deeper it is; the vehicle's own motion is what the profiler sees most.
double WaterVelocity(In r, double own, int bin) {
    return -own + 0.2 * std::exp(-0.02 * (r.vehicle_.depth_ + 2 * bin)) + 0.01 * r.random_.noise();
}

double StickCharge(In r, int stick) {
    return std::max(0.0, r.vehicle_.charge_ / Vehicle::FULL_CHARGE * 26.25 - 0.05 * (stick % 5));
}

double LoopDuration(In r, int) {
    return 0.002 + 0.0005 * std::fabs(r.random_.noise());
}

// clang-format off
const NumberChannel NUMBERS[] = {
    // component, element, count, unit, type, universal, traits, cycles, value
    {"DepthSensor", "depth", 1, Units::METER, FLOAT4, &UniversalURI::DEPTH, BEST, 1,
     [](In r, int) { return r.vehicle_.depth_ + 0.01 * r.random_.noise(); }},
    {"DepthSensor", "sea_water_pressure", 1, Units::DECIBAR, FLOAT3, &UniversalURI::SEA_WATER_PRESSURE, BEST, 1,
     [](In r, int) { return r.water_.pressure_; }},
    {"DepthSensor", "temperature", 1, Units::CELSIUS, FLOAT2, nullptr, PLAIN, 5,
     [](In r, int) { return r.water_.temperature_ + 0.4; }},
    {"DepthSensor", "offset", 1, Units::METER, FLOAT4, nullptr, SETTING | NO_INTERP, 150,
     [](In, int) { return 0.12; }},
    {"DepthFilter", "depth", 1, Units::METER, FLOAT4, &UniversalURI::DEPTH, PLAIN, 1,
     [](In r, int) { return r.vehicle_.depth_; }},
    {"DepthFilter", "depth_rate", 1, Units::METER_PER_SECOND, FLOAT3, &UniversalURI::DEPTH_RATE, BEST, 1,
     [](In r, int) { return r.vehicle_.depthRate_; }},
    {"DepthFilter", "timeConstant", 1, Units::SECOND, FLOAT4, nullptr, CONFIG | NO_INTERP, 300,
     [](In, int) { return 0.8; }},
    {"Navigator", "latitude", 1, Units::DEGREE, DOUBLE6, &UniversalURI::LATITUDE, BEST, 1,
     [](In r, int) { return Degrees(r.vehicle_.latitude_); }},
    {"Navigator", "longitude", 1, Units::DEGREE, DOUBLE6, &UniversalURI::LONGITUDE, BEST, 1,
     [](In r, int) { return Degrees(r.vehicle_.longitude_); }},
    {"Navigator", "speedOverGround", 1, Units::METER_PER_SECOND, FLOAT3, &UniversalURI::PLATFORM_SPEED_WRT_GROUND, BEST, 1,
     [](In r, int) { return std::hypot(r.vehicle_.northRate_, r.vehicle_.eastRate_); }},
    {"Navigator", "distanceMadeGood", 1, Units::METER, DOUBLE4, &UniversalURI::PLATFORM_DISTANCE_WRT_GROUND, BEST, 2,
     [](In r, int) { return r.vehicle_.distance_; }},
    {"Navigator", "timeOfSolution", 1, Units::EPOCH_SECOND, DOUBLE8, nullptr, MILLIS, 2,
     [](In r, int) { return r.now_; }},
    {"Navigator", "gridNorth", 1, Units::KILOMETER, DOUBLE6, nullptr, PLAIN, 2,
     [](In r, int) { return r.vehicle_.latitude_ * 6371; }},
    {"Navigator", "state", 1, Units::ENUM, UCHAR1, nullptr, NO_INTERP | MILLIS, 1,
     [](In r, int) { return static_cast<double>(r.plan_.phase()); }},
    {"Attitude", "pitch", 1, Units::RADIAN, DOUBLE4, &UniversalURI::PLATFORM_PITCH_ANGLE, BEST, 1,
     [](In r, int) { return r.vehicle_.pitch_; }},
    {"Attitude", "roll", 1, Units::RADIAN, DOUBLE4, &UniversalURI::PLATFORM_ROLL_ANGLE, BEST, 1,
     [](In r, int) { return r.vehicle_.roll_; }},
    {"Attitude", "heading", 1, Units::RADIAN, DOUBLE4, &UniversalURI::PLATFORM_ORIENTATION, BEST, 1,
     [](In r, int) { return r.vehicle_.heading_; }},
    {"Attitude", "pitchRate", 1, Units::RADIAN_PER_SECOND, FLOAT4, &UniversalURI::PLATFORM_PITCH_RATE, BEST, 1,
     [](In r, int) { return r.vehicle_.pitchRate_; }},
    {"Attitude", "rollRate", 1, Units::RADIAN_PER_SECOND, FLOAT4, &UniversalURI::PLATFORM_ROLL_RATE, BEST, 1,
     [](In r, int) { return r.vehicle_.rollRate_; }},
    {"Attitude", "yawRate", 1, Units::RADIAN_PER_SECOND, FLOAT4, &UniversalURI::PLATFORM_YAW_RATE, BEST, 1,
     [](In r, int) { return r.vehicle_.yawRate_; }},
    {"Attitude", "magneticField#", 3, Units::MICROTESLA, FLOAT3, nullptr, PLAIN, 1,
     [](In r, int i) { return (i == 2 ? 22 : 27 * std::cos(r.vehicle_.heading_ + i)) + 0.05 * r.random_.noise(); }},
    {"Attitude", "acceleration#", 3, Units::METER_PER_SECOND_SQUARED, FLOAT2, nullptr, PLAIN, 1,
     [](In r, int i) { return (i == 2 ? 9.79 : 0) + 0.03 * r.random_.noise(); }},
    {"Attitude", "samples", 1, Units::COUNT, INT4, nullptr, NO_INTERP, 1,
     [](In r, int) { return static_cast<double>(r.cycle_ % 2000000000) * 4; }},
    {"CTD", "sea_water_temperature", 1, Units::CELSIUS, FLOAT4, &UniversalURI::SEA_WATER_TEMPERATURE, BEST, 1,
     [](In r, int) { return r.water_.temperature_; }},
    {"CTD", "sea_water_electrical_conductivity", 1, Units::SIEMENS_PER_METER, FLOAT4,
     &UniversalURI::SEA_WATER_ELECTRICAL_CONDUCTIVITY, BEST, 1, [](In r, int) { return r.water_.conductivity_; }},
    {"CTD", "sea_water_salinity", 1, Units::PRACTICAL_SALINITY_UNIT, FLOAT4, &UniversalURI::SEA_WATER_SALINITY, BEST, 1,
     [](In r, int) { return r.water_.salinity_; }},
    {"CTD", "sea_water_density", 1, Units::KILOGRAM_PER_CUBIC_METER, FLOAT4, &UniversalURI::SEA_WATER_DENSITY, BEST, 1,
     [](In r, int) { return r.water_.density_; }},
    {"CTD", "speedOfSound", 1, Units::METER_PER_SECOND, FLOAT3, &UniversalURI::SPEED_OF_SOUND_IN_SEA_WATER, BEST, 2,
     [](In r, int) { return r.water_.soundSpeed_; }},
    {"CTD", "rawTemperature", 1, Units::NONE_USHORT, USHORT2, nullptr, PLAIN, 1,
     [](In r, int) { return std::floor(1000 * r.water_.temperature_); }},
    {"CTD", "rawConductivity", 1, Units::COUNT, INT4, nullptr, PLAIN, 1,
     [](In r, int) { return std::floor(1e6 * r.water_.conductivity_); }},
    {"CTD", "sampleTime", 1, Units::SECOND, FLOAT4, nullptr, SETTING | NO_INTERP, 150, [](In, int) { return 0.4; }},
    {"Oxygen", "mass_concentration_of_oxygen_in_sea_water", 1, Units::MICROGRAM_PER_LITER, FLOAT4,
     &UniversalURI::MASS_CONCENTRATION_OF_OXYGEN_IN_SEA_WATER, BEST, 5,
     [](In r, int) { return r.water_.oxygen_ * 31.998 * r.water_.density_ / 1000; }},
    {"Oxygen", "rawPhase", 1, Units::DEGREE, FLOAT3, nullptr, PLAIN, 5,
     [](In r, int) { return 60 - 0.12 * r.water_.oxygen_; }},
    {"Fluorometer", "mass_concentration_of_chlorophyll_in_sea_water", 1, Units::MICROGRAM_PER_LITER, FLOAT3,
     &UniversalURI::MASS_CONCENTRATION_OF_CHLOROPHYLL_IN_SEA_WATER, BEST, 2,
     [](In r, int) { return r.water_.chlorophyll_; }},
    {"Fluorometer", "backscatter", 1, Units::RECIPROCAL_METER, FLOAT3,
     &UniversalURI::VOLUME_BACKWARDS_SCATTERING_COEFFICIENT_OF_RADIATIVE_FLUX_IN_SEA_WATER, BEST, 2,
     [](In r, int) { return r.water_.backscatter_; }},
    {"Fluorometer", "counts#", 3, Units::NONE_SHORT, SHORT2, nullptr, MILLIS, 2,
     [](In r, int i) { return std::floor(50 + 300 * (i + 1) * r.water_.chlorophyll_); }},
    {"Nitrate", "mole_concentration_of_nitrate_in_sea_water", 1, Units::MICROMOLE_PER_LITER, FLOAT4,
     &UniversalURI::MOLE_CONCENTRATION_OF_NITRATE_IN_SEA_WATER, BEST, 10, [](In r, int) { return r.water_.nitrate_; }},
    {"Radiometer", "photonFlux", 1, Units::MICROMOLE_PER_SECOND_PER_SQUARE_METER, FLOAT3,
     &UniversalURI::DOWNWELLING_PHOTOSYNTHETIC_PHOTON_FLUX_IN_SEA_WATER, BEST, 2,
     [](In r, int) { return r.water_.light_; }},
    {"Radiometer", "band#", 8, Units::MICROMOLE_PER_SECOND_PER_SQUARE_METER, FLOAT2, nullptr, MILLIS, 4,
     [](In r, int i) { return r.water_.light_ / 8 * std::exp(-0.01 * i * r.vehicle_.depth_); }},
    {"Altimeter", "height_above_sea_floor", 1, Units::METER, FLOAT4, &UniversalURI::HEIGHT_ABOVE_SEA_FLOOR, BEST, 2,
     [](In r, int) { return Altitude(r); }},
    {"Altimeter", "gain", 1, Units::DECIBEL, FLOAT2, nullptr, PLAIN, 2,
     [](In r, int) { return r.vehicle_.altitude() < ALTIMETER_RANGE ? 24.0 : 42.0; }},
    {"Altimeter", "minimumRange", 1, Units::FOOT, FLOAT4, nullptr, CONFIG | NO_INTERP, 300, [](In, int) { return 1.5; }},
    {"CurrentProfiler", "forward#", BINS, Units::METER_PER_SECOND, FLOAT3, nullptr, MILLIS, 3,
     [](In r, int i) { return WaterVelocity(r, r.vehicle_.speed_, i); }},
    {"CurrentProfiler", "starboard#", BINS, Units::METER_PER_SECOND, FLOAT3, nullptr, MILLIS, 3,
     [](In r, int i) { return WaterVelocity(r, 0, i); }},
    {"CurrentProfiler", "downward#", BINS, Units::METER_PER_SECOND, FLOAT3, nullptr, MILLIS, 3,
     [](In r, int i) { return WaterVelocity(r, r.vehicle_.depthRate_, i); }},
    {"CurrentProfiler", "strength#", BINS, Units::DECIBEL, FLOAT2, nullptr, MILLIS | NO_INTERP, 3,
     [](In r, int i) { return 90 - 1.8 * i + 0.5 * r.random_.noise(); }},
    {"CurrentProfiler", "ensemble", 1, Units::COUNT, INT4, nullptr, NO_INTERP, 3,
     [](In r, int) { return std::floor(static_cast<double>(r.cycle_) / 3); }},
    {"Battery", "voltage", 1, Units::VOLT, FLOAT3, &UniversalURI::PLATFORM_BATTERY_VOLTAGE, BEST, 5,
     [](In r, int) { return r.vehicle_.voltage_; }},
    {"Battery", "charge", 1, Units::AMPERE_HOUR, FLOAT4, &UniversalURI::PLATFORM_BATTERY_CHARGE, BEST, 5,
     [](In r, int) { return r.vehicle_.charge_ / 3600; }},
    {"Battery", "averageCurrent", 1, Units::MILLIAMPERE, FLOAT3, &UniversalURI::PLATFORM_AVERAGE_CURRENT, BEST, 5,
     [](In r, int) { return 1000 * r.vehicle_.current_; }},
    {"Battery", "discharging", 1, Units::BOOL, UCHAR1, &UniversalURI::PLATFORM_BATTERY_DISCHARGING, BEST | NO_INTERP, 5,
     [](In, int) { return 1.0; }},
    {"Battery", "stickVoltage#", 16, Units::VOLT, FLOAT3, nullptr, MILLIS, 10,
     [](In r, int i) { return r.vehicle_.voltage_ / BATTERY_CELLS * 4 - 0.01 * (i % 4); }},
    {"Battery", "stickCurrent#", 16, Units::MILLIAMPERE, SHORT2, nullptr, MILLIS, 10,
     [](In r, int i) { return std::floor(1000 * r.vehicle_.current_ / 16 + i % 3); }},
    {"Battery", "stickCharge#", 16, Units::AMPERE_HOUR, FLOAT3, nullptr, MILLIS, 25,
     [](In r, int i) { return StickCharge(r, i); }},
    {"Battery", "stickTemperature#", 16, Units::CELSIUS, FLOAT2, nullptr, MILLIS, 25,
     [](In r, int i) { return r.water_.temperature_ + 2 + 0.1 * (i % 7); }},
    {"Battery", "stickCycles#", 16, Units::COUNT, INT4, nullptr, NO_INTERP | MILLIS, 150,
     [](In, int i) { return 100.0 + 3 * i; }},
    {"Thruster", "rotationRate", 1, Units::RADIAN_PER_SECOND, FLOAT3, &UniversalURI::PLATFORM_PROPELLER_ROTATION_RATE, BEST, 1,
     [](In r, int) { return r.vehicle_.propeller_; }},
    {"Thruster", "rate", 1, Units::REVOLUTION_PER_MINUTE, SHORT2, nullptr, PLAIN, 1,
     [](In r, int) { return r.vehicle_.propeller_ * 30 / AuvMath::PI; }},
    {"Thruster", "current", 1, Units::AMPERE, FLOAT3, nullptr, PLAIN, 1,
     [](In r, int) { return r.vehicle_.current_ - 1.4; }},
    {"Thruster", "phaseCurrent#", 3, Units::MILLIAMPERE, SHORT2, nullptr, PLAIN, 1,
     [](In r, int i) { return 300 * (r.vehicle_.current_ - 1.4) * std::cos(2 * AuvMath::PI / 3 * i); }},
    {"Thruster", "faults", 1, Units::ENUM, UCHAR1, nullptr, NO_INTERP | MILLIS, 5, [](In, int) { return 0.0; }},
    {"Elevator", "angle", 1, Units::RADIAN, FLOAT3, &UniversalURI::PLATFORM_ELEVATOR_ANGLE, BEST, 1,
     [](In r, int) { return r.vehicle_.elevator_; }},
    {"Rudder", "angle", 1, Units::RADIAN, FLOAT3, &UniversalURI::PLATFORM_RUDDER_ANGLE, BEST, 1,
     [](In r, int) { return r.vehicle_.rudder_; }},
    {"MassShifter", "position", 1, Units::MILLIMETER, FLOAT3, &UniversalURI::PLATFORM_MASS_POSITION, BEST, 2,
     [](In r, int) { return 1000 * r.vehicle_.mass_; }},
    {"BuoyancyPump", "volume", 1, Units::CUBIC_CENTIMETER, FLOAT3, &UniversalURI::PLATFORM_BUOYANCY_POSITION, BEST, 2,
     [](In r, int) { return 1e6 * r.vehicle_.buoyancy_; }},
    {"DepthController", "depthCommand", 1, Units::METER, FLOAT4, nullptr, NO_INTERP, 1,
     [](In r, int) { return r.plan_.guidance().depth_; }},
    {"DepthController", "depthErrorIntegral", 1, Units::NONE, DOUBLE8, nullptr, PLAIN, 1,
     [](In r, int) { return 0.1 * (r.plan_.guidance().depth_ - r.vehicle_.depth_); }},
    {"DepthController", "gain#", 6, Units::RATIO, FLOAT4, nullptr, SETTING | NO_INTERP, 250,
     [](In, int i) { return 0.05 * (i + 1); }},
    {"SpeedController", "speedCommand", 1, Units::METER_PER_SECOND, FLOAT3, nullptr, NO_INTERP, 1,
     [](In r, int) { return r.plan_.guidance().speed_; }},
    {"HeadingController", "yawRateCommand", 1, Units::DEGREE_PER_SECOND, FLOAT3, nullptr, NO_INTERP, 1,
     [](In r, int) { return Degrees(r.plan_.guidance().yawRate_); }},
    {"HeadingController", "headingIntegral", 1, Units::RADIAN, DOUBLE8, nullptr, PLAIN, 1,
     [](In r, int) { return 0.01 * r.vehicle_.yawRate_ * r.vehicle_.seconds_; }},
    {"Executive", "phase", 1, Units::ENUM, UCHAR1, nullptr, NO_INTERP, 1,
     [](In r, int) { return static_cast<double>(r.plan_.phase()); }},
    {"Executive", "maximumDepth", 1, Units::METER, FLOAT4, nullptr, SETTING | NO_INTERP, 200,
     [](In, int) { return 120.0; }},
    {"CycleKeeper", "cycle", 1, Units::COUNT, INT4, nullptr, NO_INTERP, 1,
     [](In r, int) { return static_cast<double>(r.cycle_ % 2147483647); }},
    {"CycleKeeper", "load", 1, Units::PERCENT, FLOAT2, nullptr, MILLIS, 1,
     [](In r, int) { return 31 + 4 * r.random_.noise(); }},
    {"CycleKeeper", "diskFree", 1, Units::MEGABYTE, DOUBLE6, nullptr, NO_INTERP | MILLIS, 150,
     [](In r, int) { return 120000 - 0.01 * r.vehicle_.seconds_; }},
    {"CycleKeeper:run#", "durationOfLastRun", 12, Units::SECOND, FLOAT3, nullptr, MILLIS, 10, LoopDuration},
    {"Hull", "humidity", 1, Units::PERCENT, FLOAT2, nullptr, MILLIS, 25, [](In, int) { return 34.0; }},
    {"Hull", "pressure", 1, Units::POUND_PER_SQUARE_INCH, FLOAT3, nullptr, MILLIS, 25,
     [](In r, int) { return 11.2 + 0.02 * r.water_.temperature_; }},
    {"Hull", "leak#", 4, Units::BOOL, UCHAR1, nullptr, NO_INTERP | MILLIS, 25, [](In, int) { return 0.0; }},
};
// clang-format on

}  // namespace

TableView<NumberChannel> NumberChannels() {
    return NUMBERS;
}
