#pragma once

#include "units/Unit.h"

// The catalogue of units, built before main in the order of UnitCatalogue.inc. The order matters: a base unit comes
// before the units derived from it, and of two units that share a key the first keeps it.
class Units {
public:
#define BASE_UNIT(member, name, abbreviation, type) static const BaseUnit member;
#define OWN_UNIT(member, name, abbreviation) static const Unit member;
#define DERIVED_UNIT(member, name, abbreviation, base, multiplier, addend) static const Unit member;
#include "units/UnitCatalogue.inc"
#undef BASE_UNIT
#undef OWN_UNIT
#undef DERIVED_UNIT
};
