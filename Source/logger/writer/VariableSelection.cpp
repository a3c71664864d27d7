#include "logger/writer/VariableSelection.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "data/DataAccess.h"
#include "units/UnitRegistry.h"

VariableSelection::VariableSelection(int count, char** names, char** unitNames, const Log& log)
    : log_(log),
      count_(count),
      names_(names),
      unitNames_(unitNames),
      variables_(new Variable[count]),
      codeLookup_(new int[ElementURI::NUM_CODES]) {
    reset();
}

void VariableSelection::reset() {
    std::fill_n(variables_.get(), count_, Variable());
    std::fill_n(codeLookup_.get(), ElementURI::NUM_CODES, -1);
    resolved_ = false;
    watch_.reset();
}

bool VariableSelection::lookUpAll() {
    watch_.look();
    resolved_ = true;
    for (int index = 0; index < count_; ++index) {
        lookUpUnit(index);
        if (!isFound(index) && !lookUpCode(index) && !log_.isDirectoryRead()) resolved_ = false;
    }
    return resolved_;
}

// A universal is registered before any log names it; only a code tells that the log knows the name.
bool VariableSelection::lookUpCode(int index) {
    const ElementURI* uri = log_.findElementURI(names_[index]);
    if (uri == nullptr || !uri->hasCode()) return false;
    variables_[index].code_ = uri->getCode();
    variables_[index].isUniversal_ = uri->getElementType() == ElementURI::UNIVERSAL_ELEMENT;
    variables_[index].indexBefore_ = std::exchange(codeLookup_[uri->getCode()], index);
    return true;
}

void VariableSelection::lookUpUnit(int index) {
    const char* unitName = unitNames_ == nullptr ? nullptr : unitNames_[index];
    if (unitName != nullptr && unit(index) == nullptr) variables_[index].unit_ = UnitRegistry::FindUnit(unitName);
}

int VariableSelection::indexOfName(const char* name) const {
    for (int index = 0; index < count_; ++index) {
        if (strcmp(names_[index], name) == 0) return index;
    }
    return -1;
}

const DataAccess* VariableSelection::access(int index) const {
    return isFound(index) ? log_.findDescribingAccess(code(index), isUniversal(index)) : nullptr;
}

const ElementURI* VariableSelection::standardName(int index, unsigned short universalCode) const {
    const bool servesItself = universalCode == ElementURI::SELF_CODE;
    if (universalCode >= ElementURI::NUM_CODES && !servesItself) return nullptr;
    return log_.getElementURI(isUniversal(index) ? code(index) : universalCode);
}

const Unit& VariableSelection::unitOf(int index, const DataAccess& access) const {
    return unit(index) != nullptr ? *unit(index) : access.unitOrNone();
}

const Unit* VariableSelection::shownUnit(int index) const {
    const DataAccess* const describing = access(index);
    if (describing == nullptr) return unitOfName(index);
    if (describing->getBinaryType() == NO_TYPE) return nullptr;
    return &unitOf(index, *describing);
}

const Unit* VariableSelection::unitOfName(int index) const {
    for (int i = 0; i < count_; ++i) {
        if (unit(i) != nullptr && strcmp(name(i), name(index)) == 0) return unit(i);
    }
    return nullptr;
}
