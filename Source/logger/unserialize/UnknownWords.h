#pragma once

#include <memory>

#include "logger/unserialize/RunSettings.h"
#include "logger/writer/VariableSelection.h"

// The words of the command line that only the logs give a meaning: names of variables, units for them, components, a
// mission. The log's state is asked after each, and a word that some log knows is known.
class UnknownWords {
public:
    // Settings and log are borrowed for the run; their variables are still those of the command line.
    UnknownWords(RunSettings& settings, const Log& log);

    void askLog();  // about the log that was just read
    // Adds a complaint for each word that no log knew, and one when the times and the mission, all of them known, left
    // no entry. Without any log there is nothing to say.
    void complain(bool hasEntries) const;

private:
    enum Knowledge { UNKNOWN, IN_ANOTHER_UNIT, KNOWN };

    void askForVariables();
    void askForComponents();
    void complainOfVariable(int index) const;
    void complainOfSelection() const;

    RunSettings& settings_;  // borrowed
    const Log& log_;
    VariableSelection selection_;              // of the log asked last
    std::unique_ptr<Knowledge[]> variables_;   // one per variable: the best of all logs
    std::unique_ptr<Knowledge[]> components_;  // one per parent
    bool isMissionKnown_;
    bool isAsked_ = false;
};
