#pragma once

#include "logger/unserialize/RunSettings.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"

// Reads the directories of a run's logs, one after the other, into the Slate. However often one is read, its messages
// are shown once.
class Directories {
public:
    explicit Directories(const RunSettings& settings) : settings_(settings) {}  // borrowed

    // Registers the directory of one log in the Slate unless one is registered already: from the side file, except in a
    // run that writes it, or from the log itself.
    void read(const Str& log);
    // What can be had of it cheaply: only the side file in a run that reads one.
    void readAhead(const Str& log);
    // What a log says of its version, perhaps in the midst of it, does not hold when it is read again from its start:
    // the version in force is as before the scan. What a side file says holds.
    void forgetScannedVersion();
    void keepScannedVersion() { isVersionScanned_ = false; }

private:
    void readSideFile(const Str& log);
    void readLog(const Str& log);
    bool isFirstReading(const Str& log);

    const RunSettings& settings_;
    FlexArray<Str*> logsRead_{true};  // whose side files have been read; owned
    bool isVersionScanned_ = false;   // the version in force is from a scan
    unsigned short versionBefore_ = 0;
};
