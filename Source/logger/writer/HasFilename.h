#pragma once

#include <memory>

#include "logger/writer/OutputOutcome.h"
#include "utils/Str.h"

// A writer that has a file of its own.
class HasFilename {
public:
    virtual ~HasFilename() {}
    virtual const Str& getFilename() = 0;  // empty when it writes to no named file
    // Settled when the writer is gone.
    std::shared_ptr<const OutputOutcome> getOutcome() const { return outcome_; }
    void countAsIncomplete() { outcome_->fail(); }  // for a writer in front of it that left something out, and told so

protected:
    const std::shared_ptr<OutputOutcome> outcome_ = std::make_shared<OutputOutcome>();
};
