#pragma once

#include <memory>

#include "Instruments.h"
#include "LogBuilder.h"
#include "MissionPlan.h"
#include "SynthOptions.h"

// The vehicle under way: from control cycle to control cycle it decides, moves, senses, and logs what happened.
// Memory does not grow with the length of the log.
class Dive {
public:
    static const Timestamp START;  // true time of the first cycle

    explicit Dive(const SynthOptions& options);
    // Writes the whole log, once; 0, or the system's error number of the first failure.
    int run();
    const LogBuilder& log() const { return log_; }
    double seconds() const { return vehicle_.state().seconds_; }                // of the vehicle, made so far
    unsigned int variableCount() const { return instruments_->writerCount(); }  // after run

private:
    double progress() const;  // 0 to 1 of what was asked for
    void runCycle();
    void logPlan(const Timestamp& t);
    void logFix(const Timestamp& t);
    void logIncidents(const Timestamp& t, double previous);
    void logMessage(const char* facility, Syslog::Severity severity, const Str& text, const Timestamp& t);
    double trueTime() const;  // seconds since 1970
    Timestamp clock() const;  // the vehicle's own, which runs slow

    const SynthOptions options_;
    Random random_;
    LogBuilder log_;
    Ocean ocean_;
    Vehicle vehicle_;
    MissionPlan plan_;
    std::unique_ptr<Instruments> instruments_;  // made once the log is open
    unsigned long cycle_ = 0;
};
