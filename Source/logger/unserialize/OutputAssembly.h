#pragma once

#include <memory>

#include "data/Logger.h"
#include "io/FileEncoder.h"
#include "io/StagedFile.h"
#include "logger/unserialize/RunSettings.h"
#include "logger/writer/OutputOutcome.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"

class DirectoryLogWriter;
class HDF5LogWriter;
class HasFilename;
class Inputs;
class Log;
class LogEngine;
class LogWriter;
class Rule;

// Builds the writers and rules of a run on its engine, by one operation per kind of output. The engine's associations
// own what is built; it is all gone once the engine is uninitialized, but for how the writing of the files went.
class OutputAssembly {
public:
    // An output that can be renamed when it is finished.
    struct File {
        Str name_;
        std::shared_ptr<const OutputOutcome> outcome_;
    };

    // Everything is borrowed for the run. The variables are to be complete before assemble.
    OutputAssembly(const RunSettings& settings, const Log& log, const Inputs& inputs, LogEngine& engine,
                   const Logger& logger)
        : settings_(settings),
          log_(log),
          inputs_(inputs),
          variables_(settings.variables_),
          engine_(engine),
          logger_(logger) {}

    // Creates the files that are asked for and associates a writer with the engine for each.
    void assemble();
    // Writes the log's directory to the `.dir` output, when there is one and the log's own directory does not get
    // there with the entries: in a run without entries or with a mission filter.
    void writeDirectory();
    // Puts the `.dir` in its place; after the engine has been uninitialized.
    void placeDirectory();
    // As they were created; of those that share a name, the one that stands there.
    const FlexArray<File*>& files() const { return files_; }

private:
    struct Output {
        OutputKind kind_;
        const char* extension_;
        void (OutputAssembly::*add_)(const Str& filename);
    };
    static const Output OUTPUTS[];  // in the order of creation

    void addOutput(const Output& output);
    bool isNameShared() const;
    bool mayWrite(const Str& filename, bool needsPlainFile) const;
    void remember(HasFilename& writer);
    void addBinary(const Str& filename);
    void addCsv(const Str& filename);
    void addDirectory(const Str& filename);
    void addSyslog(const Str& filename);
    void addText(const Str& filename);
    void addHdf5(const Str& filename);
    void addMatlab(const Str& filename);
    void addJson(const Str& filename);
    void addKml(const Str& filename);
    void addNetCdfTable(const Str& filename);
    void addNetCdf(const Str& filename);
    template <typename ArrayWriter>
    void addArrayFile(ArrayWriter* writer, bool sendAtStartCycle, Rule* rule);

    LogWriter* toStagedFile(const Str& filename, LogWriter* writer);
    std::unique_ptr<FileEncoder> newArchiver(const Str& filename) const;
    HDF5LogWriter* newHdf5(const Str& filename, bool matlab) const;
    LogWriter* toFile(const Str& filename, LogWriter* writer, std::unique_ptr<FileEncoder> encoder = nullptr);
    LogWriter* limitToNames(LogWriter* writer, bool passCycleStarts) const;
    LogWriter* thin(LogWriter* writer, bool sendAtStartCycle, bool makeDirEntries) const;
    LogWriter* selectTrack(LogWriter* writer) const;
    bool isLimited() const { return variables_.count_ > 0; }
    bool isThinned() const { return variables_.errorCount_ > 0; }
    void complain(const Str& text) const { logger_.syslog(text, Syslog::ERROR); }

    const RunSettings& settings_;  // borrowed, as are the others
    const Log& log_;
    const Inputs& inputs_;
    const OutputVariables& variables_;
    LogEngine& engine_;
    const Logger& logger_;
    DirectoryLogWriter* directoryWriter_ = nullptr;  // the engine's; null without a `.dir`
    bool hasDirectory_ = false;                      // some input has one
    std::unique_ptr<StagedFile> directoryFile_;      // null when it is written in its place
    std::shared_ptr<const OutputOutcome> directoryOutcome_;
    FlexArray<File*> files_{true};  // owned
};
