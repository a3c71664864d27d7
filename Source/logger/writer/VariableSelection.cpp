#include "logger/writer/VariableSelection.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "data/DataAccess.h"
#include "units/UnitRegistry.h"

VariableSelection::VariableSelection(const RequestedVariables& requested, const Log& log)
    : log_(log), requested_(requested), variables_(new Variable[count()]), codeLookup_(new int[ElementURI::NUM_CODES]) {
    reset();
}

void VariableSelection::reset() {
    std::fill_n(variables_.get(), count(), Variable());
    std::fill_n(codeLookup_.get(), ElementURI::NUM_CODES, -1);
    resolved_ = false;
    watch_.reset();
}

bool VariableSelection::lookUpAll() {
    watch_.look();
    resolved_ = true;
    for (int index = 0; index < count(); ++index) {
        lookUpUnit(index);
        if (!isFound(index) && !lookUpCode(index) && !log_.isDirectoryRead()) resolved_ = false;
    }
    return resolved_;
}

// A universal is registered before any log names it; only a code tells that the log knows the name.
bool VariableSelection::lookUpCode(int index) {
    const ElementURI* uri = log_.findElementURI(name(index));
    if (uri == nullptr || !uri->hasCode()) return false;
    variables_[index].code_ = uri->getCode();
    variables_[index].isUniversal_ = uri->getElementType() == ElementURI::UNIVERSAL_ELEMENT;
    variables_[index].indexBefore_ = std::exchange(codeLookup_[uri->getCode()], index);
    return true;
}

void VariableSelection::lookUpUnit(int index) {
    if (unitName(index) == nullptr || unit(index) != nullptr) return;
    variables_[index].unit_ = UnitRegistry::FindUnit(unitName(index));
}

int VariableSelection::indexOfName(const char* text) const {
    for (int index = 0; index < count(); ++index) {
        if (strcmp(name(index), text) == 0) return index;
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
    for (int i = 0; i < count(); ++i) {
        if (unit(i) != nullptr && strcmp(name(i), name(index)) == 0) return unit(i);
    }
    return nullptr;
}
