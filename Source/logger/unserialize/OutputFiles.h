#pragma once

#include <memory>

#include "data/Logger.h"
#include "logger/writer/OutputOutcome.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"

class HasFilename;
class Inputs;

// The files that the outputs of a run go to: which may be written at all, and which have been.
class OutputFiles {
public:
    // An output that can be renamed when it is finished.
    struct File {
        Str name_;
        std::shared_ptr<const OutputOutcome> outcome_;
    };

    // The inputs and the logger are borrowed for the run.
    OutputFiles(const Inputs& inputs, const Logger& logger) : inputs_(inputs), logger_(logger) {}

    // An output never replaces the log that it is made of; that it may not be written is logged.
    bool mayWrite(const Str& filename, bool needsPlainFile) const;
    // The writer's file counts as written from here on. Something that is written through stays what it is, and where.
    void remember(HasFilename& writer);
    // As they were created; of those that share a name, the one that stands there.
    const FlexArray<File*>& all() const { return files_; }

private:
    const Inputs& inputs_;
    const Logger& logger_;
    FlexArray<File*> files_{true};  // owned
};
