#include "units/Units.h"

#include <gtest/gtest.h>

#include <vector>

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
    EXPECT_EQ(205u, CATALOGUE.size());
    for (const Unit* unit : CATALOGUE) {
        EXPECT_EQ(unit, UnitRegistry::FindUnit(unit->getName())) << unit->getName();
        const Unit* byAbbreviation = UnitRegistry::FindUnit(unit->getAbbreviation());
        ASSERT_NE(nullptr, byAbbreviation) << unit->getAbbreviation();
        EXPECT_EQ(*unit, *byAbbreviation) << unit->getAbbreviation();
        EXPECT_EQ(&unit->getBaseUnit(), &unit->getBaseUnit().getBaseUnit()) << unit->getName();
    }
}

// Logs carry these strings and factors although they look like slips.
TEST(UnitsTest, IrregularRowsStandAsLogsCarryThem) {
    EXPECT_EQ(&Units::MOLE_PER_SECOND_PER_SQUARE_METER_PER_AMPERE,
              UnitRegistry::FindUnit("mole_per_second_per_square_meter_per_more"));
    EXPECT_EQ(&Units::RECIPROCAL_METER_PER_STERADIAN_PER_COUNT,
              UnitRegistry::FindUnit("reciprocal_meter_per_steradian_count"));
    EXPECT_EQ(&Units::SIGMA_T, UnitRegistry::FindUnit("kg/m3-1000)"));
    EXPECT_EQ(&Units::DECIBAR, UnitRegistry::FindUnit("db"));
    EXPECT_EQ(1.0, Units::MICROMOLE_PER_SECOND_PER_SQUARE_METER_PER_MICROAMPERE.getSI(1.0));
    EXPECT_EQ(1000.0, Units::COUNT_PER_MILLIMETER.getSI(1.0));
    EXPECT_EQ(&Units::SQUARE_METER, &Units::CUBIC_CENTIMETER_PER_METER.getBaseUnit());
    EXPECT_EQ(&Units::CUBIC_METER_SECOND, &Units::CUBIC_CENTIMETER_SECOND_PER_METER.getBaseUnit());
    EXPECT_EQ(1024.0, Units::KILOBYTE.getSI(1.0));
}
