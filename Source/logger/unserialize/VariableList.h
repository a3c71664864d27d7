#pragma once

#include "logger/unserialize/RunSettings.h"
#include "utils/FastMap.h"
#include "utils/FlexArray.h"

class DataAccess;
class Directories;
class ElementURI;
class Inputs;
class Log;
class LogEngine;

// The variables and settings that table outputs are about when the user names none: everything that the directories of
// the inputs describe. Variables come in the order of their accesses' codes, each followed by the universal it serves.
class VariableList {
public:
    // Reads the directory of every input, one after the other; that of a single input into the run's log, where it
    // stays. Messages are shown on the console after each.
    void readFrom(const Inputs& inputs, Log& run, Directories& directories, const RunSettings& settings,
                  LogEngine& console);
    // Adds what the log holds now; settings count when withSettings.
    void addDirectory(const Log& log, const FlexArray<const char*>& parents, bool withSettings);
    // Makes the list the run's variables: it owns their names and must outlive their use.
    void giveTo(OutputVariables& variables) const;

    // The component given as parent is that of the name. It is compared over the length of the name's component, so a
    // longer parent selects it too.
    static bool Selects(const char* parent, const Str& name);

private:
    // A text of the list's own; null for a name that is among the known ones.
    const char* newText(const Str& name, FastMap<Str, const Str*>& known);
    void addSetting(const ElementURI& name);
    void addVariable(const ElementURI& name, const DataAccess& access);

    RequestedVariables variables_;
    RequestedVariables settings_;
    FlexArray<Str*> texts_{true};             // of their names; owned
    FastMap<Str, const Str*> variableTexts_;  // those of variables_, for look-up
    FastMap<Str, const Str*> settingTexts_;
};
