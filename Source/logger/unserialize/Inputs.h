#pragma once

#include "logger/unserialize/RunSettings.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"

// The logs of a run, in the order of the command line.
class Inputs {
public:
    // Splits the slate files of the settings. A directory stands for the log "slate" in it; when it is the only input
    // the settings name that log from then on.
    explicit Inputs(RunSettings& settings);

    unsigned int count() const { return items_.size(); }
    const Str& at(unsigned int index) const { return *items_.at(index); }
    long long totalBytes() const;  // of all logs and their numbered parts
    // The file at path, by whatever name, is one that the run reads for entries or as a side file, or would be read as
    // one if it were made there.
    bool contains(const Str& path) const;

    // Registers the directory of one log in the Slate unless one is registered already: from the side file, except in a
    // run that writes it, or from the log itself.
    static void ReadDirectory(const Str& input, const RunSettings& settings);
    // What can be had of it cheaply: only the side file in a run that reads one.
    static void ReadDirectoryAhead(const Str& input, const RunSettings& settings);
    // There is a side file, and the run reads it.
    static bool HasSideFile(const Str& input, const RunSettings& settings);

private:
    void add(Str item);

    FlexArray<Str*> items_{true};  // owned
    const bool readsSideFiles_;
};
