#include "logger/unserialize/VariableList.h"

#include <cstring>

#include "data/Log.h"
#include "logger/engine/LogEngine.h"
#include "logger/unserialize/Directories.h"
#include "logger/unserialize/Inputs.h"

namespace {

bool Contains(const Str& name, const char* text) {
    return name.find(text) != Str::NO_POS;
}

bool IsBookkeeping(const Str& name) {
    return Contains(name, ":") && Contains(name, "durationOfLastRun");
}

// A component that reads one element under several names has several accesses to it, one after the other.
bool Repeats(const DataAccess& access, const DataAccess* previous) {
    return previous != nullptr && previous->getAccessorType() == DataAccessor::DATA_READER &&
           previous->getElementCode() == access.getElementCode() && previous->getOwnerCode() == access.getOwnerCode();
}

bool IsSetting(const ElementURI& name) {
    static const char PREFIX[] = "Config/";
    return name.getElementType() == ElementURI::CONFIG_ELEMENT ||
           name.getElementType() == ElementURI::SETTING_ELEMENT || strncmp(name.cStr(), PREFIX, strlen(PREFIX)) == 0;
}

bool IsChild(const FlexArray<const char*>& parents, const Str& name) {
    if (parents.isEmpty()) return true;
    for (unsigned int i = 0; i < parents.size(); ++i) {
        if (VariableList::Selects(parents.at(i), name)) return true;
    }
    return false;
}

const ElementURI* UniversalOf(const Log& log, const DataAccess& access) {
    const unsigned short code = access.getUniversalCode();
    return code < ElementURI::NUM_CODES ? log.getElementURI(code) : nullptr;
}

}  // namespace

void VariableList::readFrom(const Inputs& inputs, Log& run, Directories& directories, const RunSettings& settings,
                            LogEngine& console) {
    const bool isSingle = inputs.count() == 1;
    Log scanned(&run.getLogger());
    scanned.setPriorityWords(run.getPriorityWords());
    Log& log = isSingle ? run : scanned;
    for (unsigned int i = 0; i < inputs.count(); ++i) {
        directories.read(log, inputs.at(i));
        addDirectory(log, settings.parents_, i == 0);
        console.processQueue(Timespan::ZERO_TIMESPAN);
        if (isSingle) return;
        scanned.uninitialize();
        directories.keepScannedVersion();
    }
}

void VariableList::addDirectory(const Log& log, const FlexArray<const char*>& parents, bool withSettings) {
    const DataAccess* previous = nullptr;
    for (unsigned short code = 0; code < log.getNextDataAccessCode(); ++code) {
        const DataAccess* const access = log.getDataAccess(code);
        if (access == nullptr) continue;
        const ElementURI* const name = log.getElementURI(access->getElementCode());
        if (name == nullptr || IsBookkeeping(*name)) continue;
        const bool isSetting = IsSetting(*name) || Repeats(*access, previous);
        previous = access;
        if (isSetting) {
            if (withSettings && !Contains(*name, "keyText")) addSetting(*name);
            continue;
        }
        if (IsChild(parents, *name)) addVariable(*name, *access);
        const ElementURI* const universal = UniversalOf(log, *access);
        if (universal != nullptr) addVariable(*universal, *access);
    }
}

bool VariableList::Selects(const char* parent, const Str& name) {
    const size_t componentLength = name.find('.');
    return componentLength != Str::NO_POS && strncmp(parent, name.cStr(), componentLength) == 0;
}

const char* VariableList::newText(const Str& name, FastMap<Str, const Str*>& known) {
    if (known.get(name) != nullptr) return nullptr;
    Str* const text = new Str(name);
    texts_.push(text);
    known.put(name, text, false);
    return text->cStr();
}

void VariableList::addSetting(const ElementURI& name) {
    if (const char* const text = newText(name, settingTexts_)) settings_.add({text});
}

void VariableList::addVariable(const ElementURI& name, const DataAccess& access) {
    const char* const text = newText(name, variableTexts_);
    if (text != nullptr) variables_.add({text, access.unitOrNone().getName()});
}

void VariableList::giveTo(OutputVariables& variables) const {
    variables.requested_.addAll(variables_);
    variables.settings_.addAll(settings_);
}
