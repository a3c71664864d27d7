#pragma once

#include <optional>

#include "logger/reader/VersionScope.h"
#include "logger/unserialize/RunSettings.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"

// Reads the directories of a run's logs, one after the other. However often one is read, its messages
// are shown once.
class Directories {
public:
    explicit Directories(const RunSettings& settings) : settings_(settings) {}  // borrowed

    // Registers the directory of one log in its state unless one is registered already: from the side file, except in a
    // run that writes it, or from the log itself.
    void read(Log& log, const Str& name);
    // What can be had of it cheaply: only the side file in a run that reads one.
    void readAhead(Log& log, const Str& name);
    // What a log says of its version, perhaps in the midst of it, does not hold when it is read again from its start:
    // the version in force is as before the scan. What a side file says holds.
    void forgetScannedVersion() { scannedVersion_.reset(); }
    // Leaves it in force instead: the next log begins with it.
    void keepScannedVersion();

private:
    void readSideFile(Log& log, const Str& name);
    void readLog(Log& log, const Str& name);
    bool isFirstReading(const Str& name);

    const RunSettings& settings_;
    FlexArray<Str*> logsRead_{true};              // whose side files have been read; owned
    std::optional<VersionScope> scannedVersion_;  // while the version in force is from a scan
};
