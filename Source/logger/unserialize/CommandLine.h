#pragma once

#include <memory>

#include "logger/unserialize/RunSettings.h"

// Reads the arguments of the program into the settings of a run. Options stand alone or in groups ("-acl"), anywhere;
// of the other arguments the first names the log and the rest the output variables, each followed by what belongs to
// it: an approximation error, a unit in parentheses.
class CommandLine {
public:
    enum Result : int { RUN = 0, USAGE_SHOWN = -1, OUTPUT_NAME_MISSING = -2 };  // the last two are exit statuses
    static const char* const DEFAULT_SLATE_FILE;  // the input when the arguments name none

    // The arguments are borrowed for the run; the ')' of a unit is overwritten in them.
    CommandLine(int argc, char** argv);

    // Shows the usage on standard output when there are no arguments, and an error that ends the run on standard error.
    Result parse(RunSettings& settings);

private:
    // What the first pass found each argument to be.
    enum Role { PROGRAM, OPTION_GROUP, OPTION_VALUE, SLATE_FILE, NAME, FOLLOWER };

    static void ShowUsage();
    int markRoles(RunSettings& settings);
    int applyGroup(int index, RunSettings& settings);
    Role positionalRole(char* argument, RunSettings& settings);
    void listVariables(int nameCount, RunSettings& settings);
    static void CheckWindow(RunSettings& settings);
    static void ChooseDefaultOutput(RunSettings& settings);

    const int argc_;
    char** const argv_;              // borrowed
    std::unique_ptr<Role[]> roles_;  // one per argument
    bool slateFileGiven_ = false;
};
