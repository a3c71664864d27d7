#pragma once

#include "logger/unserialize/RunSettings.h"
#include "utils/Str.h"

class OutputBuilder;

// A kind of output: what its file is called, what it needs, and how it is put together.
struct OutputFormat {
    enum Need : unsigned int {
        NOTHING = 0,
        ALL_NAMES = 1,  // it has a place for each variable, and must know them all before the first entry
        // Opened by name, also in a run to standard output, by a library that goes back and forth in it.
        PLAIN_FILE = 2,
    };

    OutputKind kind_;
    const char* extension_;
    unsigned int needs_;
    void (*add_)(const OutputBuilder& outputs, const Str& filename);

    static const OutputFormat ALL[OUTPUT_KINDS];  // in the order of creation

    bool needs(Need need) const { return (needs_ & need) != 0; }
    bool isStream(const RunSettings& settings) const { return settings.toStandardOutput_ && !needs(PLAIN_FILE); }

    // Some output of the run needs all names.
    static bool AnyNeedsNames(const RunSettings& settings);
    // Several outputs of the run go to one file.
    static bool ShareFile(const RunSettings& settings);
};
