#include "logger/unserialize/Directories.h"

#include "logger/reader/LogDirectory.h"

void Directories::read(Log& log, const Str& name) {
    if (!log.isDirectoryRead()) readSideFile(log, name);
    if (!log.isDirectoryRead()) readLog(log, name);
}

void Directories::readAhead(Log& log, const Str& name) {
    readSideFile(log, name);
    if (settings_.writes(DIRECTORY_OUTPUT)) readLog(log, name);
}

void Directories::readSideFile(Log& log, const Str& name) {
    if (!settings_.writes(DIRECTORY_OUTPUT)) LogDirectory(log).readSideFile(name, isFirstReading(name));
}

bool Directories::isFirstReading(const Str& name) {
    for (unsigned int i = 0; i < logsRead_.size(); ++i) {
        if (*logsRead_.at(i) == name) return false;
    }
    logsRead_.push(new Str(name));
    return true;
}

// Messages about a log that is read again for its entries are left to that second reading.
void Directories::readLog(Log& log, const Str& name) {
    forgetScannedVersion();
    scannedVersion_.emplace(log);
    LogDirectory(log).read(name, settings_.isDirectoryOnly());
}

void Directories::keepScannedVersion() {
    if (scannedVersion_) scannedVersion_->leaveAsIs();
    scannedVersion_.reset();
}
