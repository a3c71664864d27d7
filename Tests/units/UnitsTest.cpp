#include "units/Units.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>
#include <vector>

#include "support/Digest.h"
#include "units/UnitRegistry.h"

static const std::vector<const Unit*> CATALOGUE = {
#define BASE_UNIT(member, name, abbreviation, type) &Units::member,
#define OWN_UNIT(member, name, abbreviation) &Units::member,
#define DERIVED_UNIT(member, name, abbreviation, base, multiplier, addend) &Units::member,
#include "units/UnitCatalogue.inc"
#undef BASE_UNIT
#undef OWN_UNIT
#undef DERIVED_UNIT
};

TEST(UnitsTest, EveryUnitIsFoundAndItsBaseStandsOnItself) {
    for (const Unit* unit : CATALOGUE) {
        EXPECT_EQ(unit, UnitRegistry::FindUnit(unit->getName())) << unit->getName();
        const Unit* byAbbreviation = UnitRegistry::FindUnit(unit->getAbbreviation());
        ASSERT_NE(nullptr, byAbbreviation) << unit->getAbbreviation();
        EXPECT_EQ(*unit, *byAbbreviation) << unit->getAbbreviation();
        EXPECT_EQ(&unit->getBaseUnit(), &unit->getBaseUnit().getBaseUnit()) << unit->getName();
    }
}

static std::string RowOf(const Unit& unit) {
    char numbers[80];
    snprintf(numbers, sizeof numbers, " %d %.17g %.17g", unit.getDefaultDataType(), unit.getSI(1.0), unit.getSI(0.0));
    return unit.getName() + (" " + std::string(unit.getAbbreviation())) + " " + unit.getBaseUnit().getName() + numbers;
}

// Logs carry these strings and factors, also those that look like slips: no row may change unnoticed. One that is
// changed on purpose takes the new digest with it.
TEST(UnitsTest, EveryRowStandsAsLogsCarryIt) {
    std::string rows;
    for (const Unit* unit : CATALOGUE) rows += RowOf(*unit) + "\n";
    EXPECT_EQ("29AB01C5E5475FED", DigestOf(rows)) << rows;
}

TEST(UnitsTest, WellKnownConversions) {
    const std::pair<const Unit&, double> sameInBaseUnits[][2] = {{{Units::FAHRENHEIT, 212}, {Units::CELSIUS, 100}},
                                                                 {{Units::KNOT, 3600}, {Units::NAUTICAL_MILE, 1}},
                                                                 {{Units::MATLAB_TIME, 719530}, {Units::DAY, 1}},
                                                                 {{Units::GALLON, 1}, {Units::FLUID_OUNCE, 128}}};
    for (const auto& [one, other] : sameInBaseUnits) {
        const double expected = other.first.getSI(other.second);
        EXPECT_NEAR(expected, one.first.getSI(one.second), 1e-9 * expected) << one.first.getName();
    }
}
