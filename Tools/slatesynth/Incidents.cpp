#include "Incidents.h"

#include <cmath>

namespace {

const MessageIncident MESSAGES[] = {
    {{1, 1e9}, "CycleKeeper", Syslog::IMPORTANT, "Vehicle software started"},
    {{5, 60}, "CycleKeeper", Syslog::DEBUG, "Cycle load is nominal"},
    {{9, 45}, "Navigator", Syslog::INFO, "Dead reckoning, last fix is good"},
    {{14, 240}, "Modem", Syslog::INFO, "Sent 312 bytes, 2 packets; \"ok\" <ack> & done"},
    {{21, 300}, "Modem", Syslog::ERROR, "No answer to ping 3, trying again"},
    {{33, 420}, "Altimeter", Syslog::ERROR, "No bottom lock"},
    {{47, 600}, "Executive", Syslog::IMPORTANT, "Depth envelope checked: 120 m"},
    {{55, 900}, "Fluorometer", Syslog::INFO, "Lens \xC2\xB5-wiped at 24 \xC2\xB0 outside"},  // UTF-8
    {{62, 1200}, "Hull", Syslog::CRITICAL, "Humidity rises, 34 percent"},
    {{71, 1500}, "Battery", Syslog::INFO, "Stick table:\n 1: 16.4 V\n 2: 16.3 V"},
    {{80, 1800}, "Thruster", Syslog::FAULT, "Controller restarted after overcurrent"},
    {{95, 2400}, "Sonar", Syslog::DEBUG, "Frame tail ]]> resynchronised"},
};

const FailureIncident FAILURES[] = {
    {{34, 840}, "Altimeter", FailureMode::DATA},
    {{22, 1200}, "Modem", FailureMode::COMMUNICATIONS},
    {{81, 1800}, "Thruster", FailureMode::OVERCURRENT},
    {{140, 3600}, "Nitrate", FailureMode::HARDWARE},
    {{260, 5400}, "DepthController", FailureMode::PERFORMANCE},
    {{300, 7200}, "Executive", FailureMode::SOFTWARE},
};

const StateIncident STATES[] = {
    {{0.5, 1e9}, "DepthSensor", "DepthSensor.depth", EventEntry::DATA_STATE_CHANGE_SET_BEST},
    {{34, 840}, "Altimeter", "Altimeter.height_above_sea_floor", EventEntry::DATA_STATE_CHANGE_INVALID},
    {{46, 840}, "Altimeter", "Altimeter.height_above_sea_floor", EventEntry::DATA_STATE_CHANGE_VALID},
    {{141, 3600},
     "Nitrate",
     "Nitrate.mole_concentration_of_nitrate_in_sea_water",
     EventEntry::DATA_STATE_CHANGE_UNAVAILABLE},
    {{200, 3600},
     "Nitrate",
     "Nitrate.mole_concentration_of_nitrate_in_sea_water",
     EventEntry::DATA_STATE_CHANGE_AVAILABLE},
};

const AccuracyIncident ACCURACIES[] = {
    {{1, 1200}, "CTD", "CTD.sea_water_temperature", 0.002},
    {{1, 1200}, "DepthSensor", "DepthSensor.depth", 0.05},
    {{16, 300}, "Navigator", "Navigator.latitude", 1.5e-6},
};

const LoadIncident LOADS[] = {
    {{142, 3600}, "Nitrate", false},
    {{198, 3600}, "Nitrate", true},
};

}  // namespace

bool Recurrence::isDue(double previous, double now) const {
    if (now < first_) return false;
    return previous < first_ || std::floor((now - first_) / every_) > std::floor((previous - first_) / every_);
}

TableView<MessageIncident> MessageIncidents() {
    return MESSAGES;
}
TableView<FailureIncident> FailureIncidents() {
    return FAILURES;
}
TableView<StateIncident> StateIncidents() {
    return STATES;
}
TableView<AccuracyIncident> AccuracyIncidents() {
    return ACCURACIES;
}
TableView<LoadIncident> LoadIncidents() {
    return LOADS;
}
