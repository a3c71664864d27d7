#include "units/Units.h"

#include "utils/StaticOrder.h"

#define BASE_UNIT(member, name, abbreviation, type) \
    const BaseUnit Units::member STATIC_ORDER(STATIC_ORDER_UNITS)(name, abbreviation, type);
#define OWN_UNIT(member, name, abbreviation) \
    const Unit Units::member STATIC_ORDER(STATIC_ORDER_UNITS)(name, abbreviation, NO_TYPE);
#define DERIVED_UNIT(member, name, abbreviation, base, multiplier, addend) \
    const Unit Units::member STATIC_ORDER(STATIC_ORDER_UNITS)(name, abbreviation, Units::base, multiplier, addend);
#include "units/UnitCatalogue.inc"
#undef BASE_UNIT
#undef OWN_UNIT
#undef DERIVED_UNIT
