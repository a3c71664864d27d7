#pragma once

#include <memory>

#include "io/FileEncoder.h"
#include "logger/unserialize/DirectoryOutput.h"
#include "logger/unserialize/OutputFiles.h"
#include "logger/unserialize/RunSettings.h"
#include "utils/Str.h"

class LogEngine;
class LogWriter;
class Rule;

// What the outputs of a run are put together from: the writer of a format, what thins or selects its entries, the file
// around it, and the engine that feeds all of it.
class OutputBuilder {
public:
    // Everything is borrowed.
    OutputBuilder(const RunSettings& settings, OutputFiles& files, DirectoryOutput& directory, LogEngine& engine)
        : settings_(settings), files_(files), directory_(directory), engine_(engine) {}

    const RunSettings& settings() const { return settings_; }
    const OutputVariables& variables() const { return settings_.variables_; }
    OutputFiles& files() const { return files_; }
    DirectoryOutput& directory() const { return directory_; }

    bool isLimited() const { return variables().requested_.count() > 0; }
    bool isThinned() const { return variables().errorCount_ > 0; }

    // The writers that come back are the caller's, and own the one they are made around.
    LogWriter* toFile(const Str& filename, LogWriter* writer, std::unique_ptr<FileEncoder> encoder = nullptr) const;
    LogWriter* limitToNames(LogWriter* writer, bool passCycleStarts) const;
    LogWriter* thin(LogWriter* writer, bool sendAtStartCycle, bool makeDirEntries) const;
    // From here on the engine owns the writer and the rule; without a rule every entry is written.
    void feed(LogWriter* writer, Rule* rule) const;

private:
    const RunSettings& settings_;
    OutputFiles& files_;
    DirectoryOutput& directory_;
    LogEngine& engine_;
};
