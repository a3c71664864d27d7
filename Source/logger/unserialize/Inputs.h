#pragma once

#include "logger/unserialize/RunSettings.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"

// The logs of a run, in the order of the command line.
class Inputs {
public:
    // Splits the slate files of the settings. The first part of a log ("dive0000") stands for the log, a directory for
    // the log "slate" in it; when it is the only input the settings name that log from then on.
    explicit Inputs(RunSettings& settings);

    unsigned int count() const { return items_.size(); }
    // As readers take it, who find the side file and the numbered parts by themselves.
    const Str& at(unsigned int index) const { return *items_.at(index); }
    long long totalBytes() const;  // of all logs and their numbered parts
    // The file at path, by whatever name, is one that the run reads for entries or as a side file, or would be read as
    // one if it were made there.
    bool contains(const Str& path) const;

private:
    void add(Str item);

    FlexArray<Str*> items_{true};  // owned
    const bool readsSideFiles_;
};
