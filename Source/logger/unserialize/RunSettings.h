#pragma once

#include <bitset>
#include "data/Syslog.h"
#include "logger/writer/RequestedVariables.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"
#include "utils/Timestamp.h"

// The outputs a run can make; how each is made stands in its row of OutputFormat::ALL.
enum OutputKind : unsigned int {
    BINARY_OUTPUT,
    CSV_OUTPUT,
    DIRECTORY_OUTPUT,
    SYSLOG_OUTPUT,
    TEXT_OUTPUT,
    HDF5_OUTPUT,
    MATLAB_OUTPUT,
    JSON_OUTPUT,
    KML_OUTPUT,
    NETCDF_TABLE_OUTPUT,
    NETCDF_OUTPUT,
    OUTPUT_KINDS,
};
using OutputKinds = std::bitset<OUTPUT_KINDS>;

// What the outputs are about. The texts are the command line's or the automatic variable list's.
struct OutputVariables {
    RequestedVariables requested_;
    RequestedVariables settings_;  // without units
    int errorCount_ = 0;           // approximation errors given
};

// What the command line asks for.
struct RunSettings {
    OutputKinds outputs_;
    bool formattedJson_ = false;
    bool minimalKml_ = false;         // two-dimensional, few messages, no times, not compressed
    const char* kmlColor_ = nullptr;  // alpha, blue, green, red in hexadecimal; borrowed from the command line
    Str vehicleName_ = "ORVEK";
    bool hideUnits_ = false;
    bool interpolate_ = false;

    Str slateFile_;                        // one or more inputs, separated by line feeds or ';'
    FlexArray<const char*> priorityList_;  // words in whose names parts of the log may also be found
    bool priorityListGiven_ = false;
    Timestamp startTime_ = Timestamp::NOT_SET_TIME;  // both bounds are inclusive; not set: open
    Timestamp endTime_ = Timestamp::NOT_SET_TIME;
    Str missionName_;             // empty: no mission filter
    bool localTimeOnly_ = false;  // leave times as the vehicle's clock had them

    Str outputName_;
    bool outputNameGiven_ = false;
    bool toStandardOutput_ = false;
    bool appendDates_ = true;
    bool symlink_ = false;

    Syslog::Severity textSeverity_ = Syslog::ERROR;    // of messages in the KML output
    Syslog::Severity syslogSeverity_ = Syslog::DEBUG;  // of the syslog file
    Syslog::Severity minimalKmlSeverity_ = Syslog::CRITICAL;
    bool quiet_ = false;

    FlexArray<const char*> parents_;  // components whose variables are listed; borrowed from the command line
    OutputVariables variables_;
    FlexArray<Str*> complaints_{true};  // about words that mean nothing, each once; owned

    // Keeps a sentence for the user until messages can be shown; one that is kept already is dropped.
    void complain(const Str& text);
    // No entry can lie between the bounds.
    bool isWindowReversed() const { return startTime_.isSet() && endTime_.isSet() && endTime_ < startTime_; }
    bool writes(OutputKind kind) const { return outputs_.test(kind); }
    // No entry is read.
    bool isDirectoryOnly() const { return outputs_ == OutputKinds(1u << DIRECTORY_OUTPUT); }
    // The file of an output: the name given serves every kind as it stands.
    Str outputFilename(const char* extension) const { return outputNameGiven_ ? outputName_ : slateFile_ + extension; }
};
