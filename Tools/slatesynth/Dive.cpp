#include "Dive.h"

#include <algorithm>

#include "Incidents.h"
#include "logger/entry/EventEntry.h"
#include "logger/entry/SyslogEntry.h"

const Timestamp Dive::START(1557849600, 0);  // 2019-05-14T16:00:00Z

namespace {

const double CYCLE = 0.4;           // s
const double CYCLE_JITTER = 0.002;  // s
const double CLOCK_OFFSET = 1.7;    // s that the vehicle's clock is behind at the start
const double CLOCK_DRIFT = 25e-6;   // s more per s
const double BYTES_PER_MEGABYTE = 1048576;
const char* const PHASE_TEXTS[] = {"At the surface", "Diving", "Coming up"};

unsigned short Code(const char* name) {
    return Slate::GetCodedName(name).getCode();
}
unsigned short ElementCode(const char* name) {
    return Slate::GetElementURICode(name);
}

// Logs what the incident's row makes, for every row of the table that is due.
template <typename Row, typename Make>
void LogDue(const TableView<Row>& rows, double previous, double now, LogBuilder& log, Make make) {
    for (const Row& row : rows) {
        if (!row.when_.isDue(previous, now)) continue;
        EventEntry entry = make(row);
        log.log(entry);
    }
}

}  // namespace

Dive::Dive(const SynthOptions& options)
    : options_(options),
      random_(options.seed_),
      log_(options.output_, options.parts_, options.version_),
      ocean_(random_),
      vehicle_(random_) {}

int Dive::run() {
    const int parts = std::max(options_.parts_, 1);
    for (int part = 1; part <= parts && log_.openNext(); ++part) {
        if (instruments_ == nullptr) instruments_.reset(new Instruments);
        while (progress() * parts < part && log_.firstError() == 0) runCycle();
    }
    log_.close();
    return log_.firstError();
}

double Dive::progress() const {
    if (options_.megabytes_ > 0) {
        return static_cast<double>(log_.bytesWritten()) / (options_.megabytes_ * BYTES_PER_MEGABYTE);
    }
    return seconds() / (options_.minutes_ * 60);
}

double Dive::trueTime() const {
    return START.asDouble() + seconds();
}

Timestamp Dive::clock() const {
    return Timestamp(trueTime() - CLOCK_OFFSET - CLOCK_DRIFT * seconds());
}

void Dive::runCycle() {
    const double previous = seconds();
    const double step = CYCLE + CYCLE_JITTER * random_.noise();
    plan_.step(vehicle_.state());
    vehicle_.step(step, plan_.guidance());
    const VehicleState& state = vehicle_.state();
    const Water water = ocean_.sense(state.depth_, state.latitude_, state.seconds_);

    const Timestamp t = clock();
    EventEntry cycleStart(t);
    log_.log(cycleStart);
    logPlan(t);
    instruments_->sample(Readings{state, water, plan_, random_, cycle_, trueTime()}, t, log_);
    logIncidents(t, previous);
    ++cycle_;
}

void Dive::logPlan(const Timestamp& t) {
    for (int i = 0; i < plan_.changeCount(); ++i) {
        EventEntry entry(t, Code(plan_.change(i).mission_), plan_.change(i).running_);
        log_.log(entry);
    }
    if (plan_.phaseBegan()) {
        logMessage("Executive", Syslog::IMPORTANT, Str(PHASE_TEXTS[plan_.phase()]) + ", " + plan_.mission(), t);
    }
    if (plan_.hasFix()) logFix(t);
}

// From here on the reader takes the vehicle's times as corrected by this fix.
void Dive::logFix(const Timestamp& t) {
    logMessage("GPS", Syslog::INFO, "GPS fix at: " + Str(trueTime(), 3), t);
}

void Dive::logIncidents(const Timestamp& t, double previous) {
    const double now = seconds();
    for (const MessageIncident& row : MessageIncidents()) {
        if (row.when_.isDue(previous, now)) logMessage(row.facility_, row.severity_, row.text_, t);
    }
    LogDue(LoadIncidents(), previous, now, log_,
           [&t](const LoadIncident& row) { return EventEntry(t, Code(row.component_), row.loaded_); });
    LogDue(FailureIncidents(), previous, now, log_, [&](const FailureIncident& row) {
        const int count = 1 + static_cast<int>((now - row.when_.first_) / row.when_.every_);
        return EventEntry(t, Code(row.component_), row.type_, count);
    });
    LogDue(StateIncidents(), previous, now, log_, [&t](const StateIncident& row) {
        return EventEntry(t, Code(row.component_), ElementCode(row.element_), row.change_);
    });
    LogDue(AccuracyIncidents(), previous, now, log_, [&t](const AccuracyIncident& row) {
        return EventEntry(t, Code(row.component_), ElementCode(row.element_), EventEntry::SET_DATA_ACCURACY,
                          row.accuracy_);
    });
}

void Dive::logMessage(const char* facility, Syslog::Severity severity, const Str& text, const Timestamp& t) {
    SyslogEntry entry(text, severity, Slate::GetCodedName(facility), t);
    log_.log(entry);
}
