#pragma once

#include <memory>

#include "data/Logger.h"
#include "io/StagedFile.h"
#include "logger/writer/OutputOutcome.h"
#include "utils/Str.h"

class DirectoryLogWriter;
class LogWriter;

// The `.dir` of a run, which replaces the one before only when it is whole and says something.
class DirectoryOutput {
public:
    explicit DirectoryOutput(const Logger& logger) : logger_(logger) {}  // borrowed

    // The writer of the run's directory; the engine's, borrowed.
    void setWriter(DirectoryLogWriter* writer) { writer_ = writer; }
    // Around the writer, a file of its own beside the name until it is placed; the caller's.
    LogWriter* toStagedFile(const Str& filename);
    // Some input has a directory.
    void setFound() { isFound_ = true; }
    // Writes the log's directory, when there is an output for it.
    void write();
    // After the engine has been uninitialized.
    void place();

private:
    void complain(const Str& text) const { logger_.syslog(text, Syslog::ERROR); }

    const Logger& logger_;
    DirectoryLogWriter* writer_ = nullptr;  // null without a `.dir`
    bool isFound_ = false;
    std::unique_ptr<StagedFile> file_;  // null when it is written in its place
    std::shared_ptr<const OutputOutcome> outcome_;
};
