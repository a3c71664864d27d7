#include "logger/unserialize/Directories.h"

#include "data/Slate.h"
#include "logger/entry/DirectoryEntry.h"

void Directories::read(const Str& log) {
    if (!Slate::IsDirectoryRead()) readSideFile(log);
    if (!Slate::IsDirectoryRead()) readLog(log);
}

void Directories::readAhead(const Str& log) {
    readSideFile(log);
    if (settings_.writes(DIRECTORY_OUTPUT)) readLog(log);
}

void Directories::readSideFile(const Str& log) {
    if (!settings_.writes(DIRECTORY_OUTPUT)) Slate::ReadSideFile(log, isFirstReading(log));
}

bool Directories::isFirstReading(const Str& log) {
    for (unsigned int i = 0; i < logsRead_.size(); ++i) {
        if (*logsRead_.at(i) == log) return false;
    }
    logsRead_.push(new Str(log));
    return true;
}

// Messages about a log that is read again for its entries are left to that second reading.
void Directories::readLog(const Str& log) {
    forgetScannedVersion();
    versionBefore_ = DirectoryEntry::CurrentLogVersion_;
    isVersionScanned_ = true;
    Slate::ReadDirectory(log, settings_.isDirectoryOnly());
}

void Directories::forgetScannedVersion() {
    if (isVersionScanned_) DirectoryEntry::CurrentLogVersion_ = versionBefore_;
    isVersionScanned_ = false;
}
