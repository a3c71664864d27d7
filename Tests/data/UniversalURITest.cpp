#include "data/UniversalURI.h"

#include <set>
#include <string>

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
    static const struct {
        const UniversalURI& uri_;
        const char* name_;
        const Unit& unit_;
        BinaryDataType type_;
        BlobType blobType_;
        int size1_, size2_;
    } FORMS[] = {
        {UniversalURI::ACOUSTIC_CONTACT_DIRECTION_VF, "acoustic_contact_direction_vehicle_frame", Units::NONE, STRVALUE,
         BLOB_FLOAT64LE, 3, 0},
        {UniversalURI::PLATFORM_ORIENTATION_MATRIX, "platform_orientation_matrix", Units::NONE, STRVALUE,
         BLOB_FLOAT64LE, 3, 3},
        {UniversalURI::LOCATION_FIX, "location_fix", Units::DEGREE, STRVALUE, BLOB_FLOAT64LE, 2, 0},
        {UniversalURI::LATITUDE, "latitude", Units::DEGREE, DOUBLE6, NOT_BLOB, 0, 0},
        {UniversalURI::DEPTH, "depth", Units::METER, NO_TYPE, NOT_BLOB, 0, 0},
        {UniversalURI::PLATFORM_COURSE, "platform_course", ElementURI::UNSPECIFIED_UNIT, NO_TYPE, NOT_BLOB, 0, 0},
    };
    for (const auto& form : FORMS) {
        EXPECT_STREQ(form.name_, form.uri_.cStr());
        EXPECT_EQ(&form.unit_, &form.uri_.getUnit()) << form.name_;
        EXPECT_EQ(form.type_, form.uri_.getBinaryType()) << form.name_;
        EXPECT_EQ(form.blobType_, form.uri_.getBlobType()) << form.name_;
        EXPECT_TRUE(form.size1_ == form.uri_.getDimension1() && form.size2_ == form.uri_.getDimension2()) << form.name_;
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
