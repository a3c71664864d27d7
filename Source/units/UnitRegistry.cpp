#include "units/UnitRegistry.h"

#include <cstdio>

#include "units/Unit.h"
#include "utils/StaticOrder.h"

UnitRegistry* UnitRegistry::Instance_ = nullptr;
UnitRegistry::StaticDestructor UnitRegistry::StaticDestructor_ STATIC_ORDER(STATIC_ORDER_REGISTRIES);

UnitRegistry::StaticDestructor::~StaticDestructor() {
    delete Instance_;
    Instance_ = nullptr;
}

void UnitRegistry::AddUnit(const Unit* unit) {
    if (Instance_ == nullptr) Instance_ = new UnitRegistry;
    Instance_->addName(unit);
    Instance_->addAbbreviation(unit);
}

void UnitRegistry::addName(const Unit* unit) {
    if (unitMap_.put(unit->getName(), unit, false)) return;
    fprintf(stderr, "Duplicate unit name: %s\n", unit->getName());
}

void UnitRegistry::addAbbreviation(const Unit* unit) {
    const Str abbreviation(unit->getAbbreviation());
    if (unitMap_.put(abbreviation, unit, false)) return;
    if (abbreviation == unit->getName() || *unitMap_.get(abbreviation) == *unit) return;
    fprintf(stderr, "Duplicate unit abbreviation: %s\n", unit->getAbbreviation());
}

const Unit* UnitRegistry::FindUnit(const Str& key) {
    return Instance_ == nullptr ? nullptr : Instance_->unitMap_.get(key);
}

unsigned int UnitRegistry::Size() {
    return Instance_ == nullptr ? 0 : Instance_->unitMap_.size();
}

Str UnitRegistry::GetIndexedKey(unsigned int index) {
    const MapEntry<const Str, const Unit*>* entry =
        Instance_ == nullptr ? nullptr : Instance_->unitMap_.getIndexedEntry(index);
    return entry == nullptr ? Str() : entry->getKey();
}

const Unit* UnitRegistry::GetIndexedUnit(unsigned int index) {
    return Instance_ == nullptr ? nullptr : Instance_->unitMap_.getIndexed(index);
}
