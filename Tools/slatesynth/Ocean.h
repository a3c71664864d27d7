#pragma once

#include "Random.h"

// The water at one place, in the units that its instruments report.
struct Water {
    double temperature_ = 0;   // Celsius
    double salinity_ = 0;      // practical salinity
    double pressure_ = 0;      // decibar above the atmosphere
    double conductivity_ = 0;  // S/m
    double density_ = 0;       // kg/m3
    double soundSpeed_ = 0;    // m/s
    double oxygen_ = 0;        // micromole per kilogram
    double chlorophyll_ = 0;   // microgram per litre
    double nitrate_ = 0;       // micromole per litre
    double light_ = 0;         // micromole/s/m2
    double backscatter_ = 0;   // 1/m
};

// A stratified upper ocean: a mixed layer, a thermocline, a deep chlorophyll maximum. Internal waves lift it.
class Ocean {
public:
    explicit Ocean(Random& random) : random_(random) {}  // borrowed
    // The water at the depth (m) and latitude (radians), as sensed at the time (s).
    Water sense(double depth, double latitude, double seconds);

private:
    Random& random_;
};
