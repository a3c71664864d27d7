#include "data/UniversalURI.h"

#include <set>
#include <tuple>

#include "support/SlateFixture.h"
#include "units/UnitRegistry.h"
#include "units/Units.h"

typedef SlateFixture UniversalURITest;

TEST_F(UniversalURITest, EveryStandardNameIsBuiltWithItsUnitBeforeMain) {
    std::set<std::string> names;
    for (const UniversalURI* universal : UniversalURI::CATALOGUE) {
        names.insert(universal->cStr());
        EXPECT_TRUE(universal->isUniversal());
        EXPECT_EQ(&universal->getUnit(), UnitRegistry::FindUnit(universal->getUnit().getName())) << universal->cStr();
        EXPECT_EQ(universal, UniversalURI::FindURI(*universal)) << universal->cStr();
    }
    EXPECT_EQ(102u, names.size());
    EXPECT_STREQ("acoustic_receive_time", UniversalURI::CATALOGUE[0]->cStr());
    EXPECT_EQ(&UniversalURI::DEPTH, UniversalURI::CATALOGUE[6]);
}

TEST_F(UniversalURITest, FixedForms) {
    const Unit& none = Units::NONE;
    const Unit& unspecified = ElementURI::UNSPECIFIED_UNIT;
    // The name, the unit, and of an array its dimensions.
    const std::tuple<const UniversalURI&, const char*, const Unit&, BinaryDataType, BlobType, int, int> forms[] = {
        {UniversalURI::ACOUSTIC_CONTACT_DIRECTION_VF, "acoustic_contact_direction_vehicle_frame", none, STRVALUE,
         BLOB_FLOAT64LE, 3, 0},
        {UniversalURI::PLATFORM_ORIENTATION_MATRIX, "platform_orientation_matrix", none, STRVALUE, BLOB_FLOAT64LE, 3,
         3},
        {UniversalURI::LOCATION_FIX, "location_fix", Units::DEGREE, STRVALUE, BLOB_FLOAT64LE, 2, 0},
        {UniversalURI::LATITUDE, "latitude", Units::DEGREE, DOUBLE6, NOT_BLOB, 0, 0},
        {UniversalURI::DEPTH, "depth", Units::METER, NO_TYPE, NOT_BLOB, 0, 0},
        {UniversalURI::PLATFORM_COURSE, "platform_course", unspecified, NO_TYPE, NOT_BLOB, 0, 0}};
    for (const auto& [uri, name, unit, type, blobType, size1, size2] : forms) {
        EXPECT_STREQ(name, uri.cStr());
        EXPECT_EQ(&unit, &uri.getUnit()) << name;
        EXPECT_EQ(type, uri.getBinaryType()) << name;
        EXPECT_EQ(blobType, uri.getBlobType()) << name;
        EXPECT_TRUE(size1 == uri.getDimension1() && size2 == uri.getDimension2()) << name;
    }
}

TEST_F(UniversalURITest, IsFoundAmongUniversalsOnly) {
    Slate::RegisterElementURI(new ElementURI(0, "Depth.depth", ElementURI::DATA_ELEMENT));
    Slate::RegisterElementURI(new ElementURI(1, "depth_of_wreck", ElementURI::UNIVERSAL_ELEMENT));
    EXPECT_NE(nullptr, ElementURI::FindURI("Depth.depth"));
    EXPECT_EQ(nullptr, UniversalURI::FindURI("Depth.depth"));
    EXPECT_EQ(nullptr, UniversalURI::FindURI("depth_of_wreck"));
    EXPECT_EQ(nullptr, UniversalURI::FindURI(""));
}
