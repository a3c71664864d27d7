#pragma once

#include "logger/unserialize/DirectoryOutput.h"
#include "logger/unserialize/OutputFiles.h"

class Log;
class LogEngine;
class OutputBuilder;
struct OutputFormat;
struct RunSettings;

// Builds the outputs of a run on its engine. The engine's associations own the writers and rules; they are all gone
// once the engine is uninitialized, but for how the writing of the files went.
class OutputAssembly {
public:
    // Everything is borrowed for the run. The variables are to be complete before assemble.
    OutputAssembly(const RunSettings& settings, const Log& log, const Inputs& inputs, LogEngine& engine,
                   const Logger& logger)
        : settings_(settings),
          log_(log),
          engine_(engine),
          logger_(logger),
          files_(inputs, logger),
          directory_(logger) {}

    // Creates the files that are asked for and associates a writer with the engine for each.
    void assemble();
    // Writes the log's directory to the `.dir` output, when there is one and the log's own directory does not get
    // there with the entries: in a run without entries or with a mission filter.
    void writeDirectory();
    // Puts the `.dir` in its place; after the engine has been uninitialized.
    void placeDirectory() { directory_.place(); }
    // As they were created; of those that share a name, the one that stands there.
    const FlexArray<OutputFiles::File*>& files() const { return files_.all(); }

private:
    void add(const OutputFormat& format, const OutputBuilder& builder) const;
    void complain(const Str& text) const { logger_.syslog(text, Syslog::ERROR); }

    const RunSettings& settings_;  // borrowed, as are the others
    const Log& log_;
    LogEngine& engine_;
    const Logger& logger_;
    OutputFiles files_;
    DirectoryOutput directory_;
};
