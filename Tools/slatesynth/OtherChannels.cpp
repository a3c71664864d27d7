#include <cmath>

#include "Channels.h"
#include "MissionPlan.h"
#include "units/Units.h"

namespace {

typedef const Readings& In;

const char* const MODEM_LINES[] = {
    "ping 3, range 1204 m",
    "ack",
    "command \"resume\", priority 2",
    "line one\nline two",
    "\xC3\xA9tat: nominal, 24 \xC2\xB0 outside",  // UTF-8
    "",
};

const TextChannel TEXTS[] = {
    {"Executive", "mission", NO_INTERP, 10, [](In r) { return r.plan_.mission(); }},
    {"Executive", "plan", SETTING | NO_INTERP, 500, [](In) { return "yoyo, 3 dives, \"north\" track"; }},
    {"Modem", "received", NO_INTERP | MILLIS, 75,
     [](In r) { return MODEM_LINES[r.random_.below(sizeof(MODEM_LINES) / sizeof(MODEM_LINES[0]))]; }},
    {"Modem", "state", PLAIN, 25, [](In r) { return r.vehicle_.isAtSurface() ? "radio" : "acoustic"; }},
};

double VelocityOverGround(In r, int axis) {
    return axis == 0 ? r.vehicle_.northRate_ : axis == 1 ? r.vehicle_.eastRate_ : r.vehicle_.depthRate_;
}

// The rotation by heading alone, which is most of it.
double Orientation(In r, int cell) {
    const double c = std::cos(r.vehicle_.heading_);
    const double s = std::sin(r.vehicle_.heading_);
    const double matrix[9] = {c, -s, 0, s, c, 0, 0, 0, 1};
    return matrix[cell];
}

double Spectrum(In r, int band) {
    return 60 - 0.15 * band + 2 * r.random_.noise();
}

double EchoStrength(In r, int sample) {
    const double range = sample * 0.5;
    return std::fabs(range - r.vehicle_.altitude()) < 1 ? 240 : 20 + static_cast<double>(r.random_.below(24));
}

const ArrayChannel ARRAYS[] = {
    {"Navigator",
     "velocity",
     Units::METER_PER_SECOND,
     &UniversalURI::PLATFORM_VELOCITY_WRT_GROUND,
     BLOB_FLOAT64LE,
     {3, 0, 0},
     3,
     2,
     VelocityOverGround},
    {"Attitude",
     "matrix",
     Units::NONE,
     &UniversalURI::PLATFORM_ORIENTATION_MATRIX,
     BLOB_FLOAT64LE,
     {3, 3, 0},
     9,
     5,
     Orientation},
    {"Hydrophone", "spectrum", Units::DECIBEL, nullptr, BLOB_FLOAT32LE, {128, 0, 0}, 128, 5, Spectrum},
    {"Hydrophone", "history", Units::DECIBEL, nullptr, BLOB_FLOAT32BE, {4, 16, 0}, 64, 25, Spectrum},
    {"Sonar", "echo", Units::COUNT, nullptr, BLOB_UINT8, {256, 0, 0}, 256, 5, EchoStrength},
    {"Sonar", "beams", Units::COUNT, nullptr, BLOB_INT16LE, {2, 8, 16}, 256, 10, EchoStrength},
    {"Sonar", "telegram", Units::NONE, nullptr, BLOB_UINT8, {0, 0, 0}, 48, 25, EchoStrength},
};

const ReaderChannel READERS[] = {
    {"DepthController", "DepthFilter.depth", PLAIN, 1},  {"DepthController", "Attitude.pitch", MILLIS, 2},
    {"HeadingController", "Attitude.heading", PLAIN, 1}, {"Executive", "Battery.charge", UNTYPED, 5},
    {"Executive", "Executive.maximumDepth", PLAIN, 200}, {"Navigator", "Attitude.pitch", UNTYPED | MILLIS, 2},
};

}  // namespace

TableView<TextChannel> TextChannels() {
    return TEXTS;
}
TableView<ArrayChannel> ArrayChannels() {
    return ARRAYS;
}
TableView<ReaderChannel> ReaderChannels() {
    return READERS;
}
