#pragma once

#include <cmath>
#include <string>

#include "run/DiveLog.h"

// A log of about 1 kB that holds something of every kind: what slatesynth writes is too long for a fuzzer to change
// well. Cycles of one second: each a position, a depth, a text and arrays; a mission runs; the clock is corrected once.
class SeedDive {
public:
    static std::string Of(int cycleCount) {
        SeedDive dive;
        for (int i = 0; i < cycleCount; ++i) dive.addCycle(i);
        dive.log_.add(dive.log().running("Survey", cycleCount, 0));
        return dive.log_.bytes();
    }

private:
    SeedDive() {
        log_.add(log().version(8));
        for (DataAccess* access : {depth_, latitude_, longitude_, reader_, gain_, state_, velocity_, image_}) {
            log_.declare(access);
        }
        for (const char* const name : {"Survey.leg", "Mission.phase"}) log_.add(log().nameEntry(log().declare(name)));
    }

    SmallLog& log() { return log_.log_; }

    void addCycle(int i) {
        const float distance = static_cast<float>(i);
        log_.add(log().cycle(i));
        if (i == 0) log_.add(log().data(gain_, 0.1, 0.75));
        if (i == 1) log_.add(log().running("Survey", i, 1));
        log_.add(log().bestData(depth_, i + 0.1, 2.0 + i * i));
        log_.add(log().bestData(latitude_, i + 0.2, 36.8 + 1e-4 * std::sin(i)));
        log_.add(log().bestData(longitude_, i + 0.2, -121.8 + 1e-4 * i));
        log_.add(log().data(reader_, i + 0.3, 2.0));
        log_.add(log().text(state_, i + 0.4, i % 2 == 0 ? "radio" : "\"acoustic\", <3>\n"));
        log_.add(log().blob<double>(velocity_, i + 0.5, {1.0, 0.5 * i, NAN}));
        log_.add(log().blob<float>(image_, i + 0.6, {distance, 1, 2, 3, 4, 5}));
        log_.add(log().syslog(i + 0.7, "Started mission Survey", i % 2 == 0 ? Syslog::IMPORTANT : Syslog::CRITICAL));
        if (i == 2) log_.add(log().syslog(i + 0.8, "GPS fix at: 1338553805", Syslog::INFO));
    }

    DiveLog log_;
    // The Slate's.
    DataAccess* const depth_ = log().declareServing("depth", "Depth.depth", Units::METER, FLOAT3);
    DataAccess* const latitude_ = log().declareServing("latitude", "Nav.latitude", Units::DEGREE, DOUBLE6);
    DataAccess* const longitude_ = log().declareServing("longitude", "Nav.longitude", Units::DEGREE, DOUBLE6);
    DataAccess* const reader_ = log().declareReader("Nav", depth_);
    DataAccess* const gain_ = log().declareSetting("Nav.gain");
    DataAccess* const state_ = log().declareText("Modem.state");
    DataAccess* const velocity_ = log().declareBlob("Nav.velocity", Units::METER_PER_SECOND, BLOB_FLOAT64LE, 3);
    DataAccess* const image_ = log().declareBlob("Sonar.image", Units::COUNT, BLOB_FLOAT32LE, 2, 3);
};
