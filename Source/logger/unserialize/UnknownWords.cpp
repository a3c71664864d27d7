#include "logger/unserialize/UnknownWords.h"

#include <algorithm>

#include "data/DataAccess.h"
#include "data/DataValue.h"
#include "logger/unserialize/VariableList.h"
#include "units/Unit.h"

UnknownWords::UnknownWords(RunSettings& settings, const Log& log)
    : settings_(settings),
      log_(log),
      selection_(settings.variables_.requested_, log),
      variables_(new Knowledge[selection_.count()]()),
      components_(new Knowledge[settings.parents_.size()]()),
      isMissionKnown_(settings.missionName_.isEmpty()) {}

void UnknownWords::askLog() {
    isAsked_ = true;
    askForVariables();
    askForComponents();
    isMissionKnown_ = isMissionKnown_ || log_.findCodedName(settings_.missionName_) != nullptr;
}

// The log's numbers can be read in the unit asked for; nothing is held against a unit that either side does not know.
static bool Fits(const Unit* wanted, const DataAccess* access) {
    const Unit* const logged = access == nullptr ? nullptr : access->getUnit();
    if (wanted == nullptr || logged == nullptr) return true;
    const std::unique_ptr<DataValue> number(logged->dataValue(DOUBLE8));
    return number->fits(*wanted);
}

void UnknownWords::askForVariables() {
    selection_.reset();
    selection_.resolve();
    for (int i = 0; i < selection_.count(); ++i) {
        if (!selection_.isFound(i)) continue;
        const bool fits = Fits(selection_.unit(i), selection_.access(i));
        variables_[i] = std::max(variables_[i], fits ? KNOWN : IN_ANOTHER_UNIT);
    }
}

void UnknownWords::askForComponents() {
    for (unsigned short code = 0; code < log_.getNextElementURICode(); ++code) {
        const ElementURI* const name = log_.getElementURI(code);
        for (unsigned int i = 0; name != nullptr && i < settings_.parents_.size(); ++i) {
            if (VariableList::Selects(settings_.parents_.at(i), *name)) components_[i] = KNOWN;
        }
    }
}

void UnknownWords::complain(bool hasEntries) const {
    if (!isAsked_) return;
    for (int i = 0; i < selection_.count(); ++i) complainOfVariable(i);
    for (unsigned int i = 0; i < settings_.parents_.size(); ++i) {
        if (components_[i] == KNOWN) continue;
        settings_.complain(Str("No variable of the component \"") + settings_.parents_.at(i) + "\" is in the logs");
    }
    if (!isMissionKnown_) {
        settings_.complain("No mission \"" + settings_.missionName_ + "\" is in the logs");
    } else if (!hasEntries && !settings_.isWindowReversed()) {
        complainOfSelection();
    }
}

void UnknownWords::complainOfVariable(int index) const {
    const Str name = Str("\"") + selection_.name(index) + "\"";
    if (variables_[index] == UNKNOWN) settings_.complain("No variable " + name + " is in the logs");
    if (variables_[index] == IN_ANOTHER_UNIT) {
        settings_.complain(Str("The unit \"") + selection_.unitName(index) + "\" does not fit the variable " + name);
    }
}

void UnknownWords::complainOfSelection() const {
    Str words;
    if (settings_.startTime_.isSet()) words += " -s " + settings_.startTime_.toString(3);
    if (settings_.endTime_.isSet()) words += " -e " + settings_.endTime_.toString(3);
    if (!settings_.missionName_.isEmpty()) words += " -r " + settings_.missionName_;
    if (!words.isEmpty()) settings_.complain("No entry lies within" + words);
}
