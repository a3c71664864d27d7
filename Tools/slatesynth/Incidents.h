#pragma once

#include "Channels.h"
#include "data/Syslog.h"
#include "logger/entry/EventEntry.h"
#include "logger/entry/FailureMode.h"

// When something happens: first_ seconds into the dive, then every every_ seconds.
struct Recurrence {
    double first_;
    double every_;
    bool isDue(double previous, double now) const;  // some occurrence lies in previous < t <= now, in the same seconds
};

// A component says something.
struct MessageIncident {
    Recurrence when_;
    const char* facility_;
    Syslog::Severity severity_;
    const char* text_;
};

// A component fails.
struct FailureIncident {
    Recurrence when_;
    const char* component_;
    FailureMode::FailType type_;
};

// An element becomes valid, invalid, available or unavailable, or the best of its universal.
struct StateIncident {
    Recurrence when_;
    const char* component_;
    const char* element_;  // component.element
    EventEntry::DataStateChange change_;
};

// A component tells how good its element is.
struct AccuracyIncident {
    Recurrence when_;
    const char* component_;
    const char* element_;  // component.element
    double accuracy_;      // in the element's base unit
};

// A component that is switched off to save energy, and on again.
struct LoadIncident {
    Recurrence when_;
    const char* component_;
    bool loaded_;
};

// What happens in every dive: constants of the process.
TableView<MessageIncident> MessageIncidents();
TableView<FailureIncident> FailureIncidents();
TableView<StateIncident> StateIncidents();
TableView<AccuracyIncident> AccuracyIncidents();
TableView<LoadIncident> LoadIncidents();
