#pragma once

#include <bitset>
#include <memory>

#include "data/Syslog.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"
#include "utils/Timestamp.h"

// The outputs a run can make. In which order they are created is for the OutputAssembly to say.
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

// The variables that the outputs are about, in the parallel arrays that writers borrow for the length of the run.
// The strings are the command line's or the automatic variable list's.
struct OutputVariables {
    int count_ = 0;
    int errorCount_ = 0;  // approximation errors given
    int settingCount_ = 0;
    std::unique_ptr<char*[]> names_;     // count_ of them, as are units and errors; null when there are none
    std::unique_ptr<char*[]> units_;     // null: the unit of the log
    std::unique_ptr<float[]> errors_;    // in the variable's base unit; NaN: none given. Null for an automatic list
    std::unique_ptr<char*[]> settings_;  // settingCount_ names
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

    FlexArray<char*> parents_;  // components whose variables are listed; borrowed from the command line
    OutputVariables variables_;
    FlexArray<Str*> complaints_{true};  // about words that mean nothing, each once; owned

    // Keeps a sentence for the user until messages can be shown; one that is kept already is dropped.
    void complain(const Str& text);
    // No entry can lie between the bounds.
    bool isWindowReversed() const {
        return startTime_ != Timestamp::NOT_SET_TIME && endTime_ != Timestamp::NOT_SET_TIME && endTime_ < startTime_;
    }
    bool writes(OutputKind kind) const { return outputs_.test(kind); }
    // No entry is read.
    bool isDirectoryOnly() const { return outputs_ == OutputKinds(1u << DIRECTORY_OUTPUT); }
    // Some output has a place for each variable and must know them all before the first entry.
    bool hasTableOutput() const {
        static const OutputKinds TABLES(1u << CSV_OUTPUT | 1u << HDF5_OUTPUT | 1u << MATLAB_OUTPUT | 1u << JSON_OUTPUT |
                                        1u << NETCDF_TABLE_OUTPUT | 1u << NETCDF_OUTPUT);
        return (outputs_ & TABLES).any();
    }
    // The file of an output: the name given serves every kind as it stands.
    Str outputFilename(const char* extension) const { return outputNameGiven_ ? outputName_ : slateFile_ + extension; }
};
