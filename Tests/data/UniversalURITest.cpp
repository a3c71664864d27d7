#include "data/UniversalURI.h"

#include <set>

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
        EXPECT_EQ(universal, Log::OfProcess().findElementURI(*universal)) << universal->cStr();
        EXPECT_EQ(&slate_.getUniversal(*universal), UniversalURI::FindURI(*universal)) << universal->cStr();
    }
    EXPECT_EQ(102u, names.size());
    EXPECT_STREQ("acoustic_receive_time", UniversalURI::CATALOGUE[0]->cStr());
    EXPECT_EQ(&UniversalURI::DEPTH, UniversalURI::CATALOGUE[6]);
    EXPECT_EQ(DOUBLE6, UniversalURI::LATITUDE.getBinaryType());
    EXPECT_EQ(BLOB_FLOAT64LE, UniversalURI::PLATFORM_ORIENTATION_MATRIX.getBlobType());
    EXPECT_EQ(3, UniversalURI::PLATFORM_ORIENTATION_MATRIX.getDimension2());
}

TEST_F(UniversalURITest, IsFoundAmongUniversalsOnly) {
    Slate::RegisterElementURI(new ElementURI(0, "Depth.depth", ElementURI::DATA_ELEMENT));
    Slate::RegisterElementURI(new ElementURI(1, "depth_of_wreck", ElementURI::UNIVERSAL_ELEMENT));
    EXPECT_NE(nullptr, ElementURI::FindURI("Depth.depth"));
    EXPECT_EQ(nullptr, UniversalURI::FindURI("Depth.depth"));
    EXPECT_EQ(nullptr, UniversalURI::FindURI("depth_of_wreck"));
    EXPECT_EQ(nullptr, UniversalURI::FindURI(""));
}
