#pragma once

#include "data/Logger.h"
#include "logger/unserialize/RunSettings.h"
#include "utils/Str.h"
#include "utils/Timestamp.h"

class Inputs;

// Gives a finished output file a name that tells from when to when its data are: "dive.csv" becomes
// "dive_201206011230_201206011415.csv", and "slate.csv" "201206011230_201206011415.csv".
class OutputNaming {
public:
    // The settings, the inputs and the logger are borrowed. first must be set.
    OutputNaming(const RunSettings& settings, const Inputs& inputs, const Timestamp& first, const Timestamp& last,
                 const Logger& logger);

    // Renames the file, removes what earlier runs saved of data from the same start, and links its name to it, as the
    // settings say. A name without an extension stays. No input is removed or replaced. What is done, or failed, is
    // logged.
    void finish(const Str& filename) const;

private:
    // The parts of "Logs/latest/slate.csv" by which its dated name is made.
    struct Parts {
        Str directory_;  // with its '/'; empty for the working directory
        Str prefix_;     // what the dated name begins with, up to the first date
        Str extension_;  // with its '.'
    };
    bool split(const Str& filename, Parts& parts) const;
    void removeEarlierResults(const Parts& parts, const Str& datedName) const;
    void remove(const Str& path) const;
    void link(const Str& filename, const Str& datedName) const;

    const Inputs& inputs_;
    const Logger& logger_;
    const Str firstDate_;
    const Str lastDate_;
    const bool symlink_;
    const bool dropsSlate_;  // the log is called "slate", a name that says nothing next to dates
};
