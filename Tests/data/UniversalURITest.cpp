#include "data/UniversalURI.h"

#include "support/Digest.h"
#include "support/SlateFixture.h"

typedef SlateFixture UniversalURITest;

// Logs carry the names and rely on the forms; one that is changed on purpose takes the new digest with it.
TEST_F(UniversalURITest, EveryStandardNameStandsWithItsFormBeforeMain) {
    std::string rows;
    for (const UniversalURI* universal : UniversalURI::CATALOGUE) {
        const int form[] = {universal->getBinaryType(), universal->getBlobType(), universal->getDimension1(),
                            universal->getDimension2(), universal->getDimension3()};
        rows += std::string(universal->cStr()) + " " + universal->getUnit().getName();
        for (const int number : form) rows += " " + std::to_string(number);
        rows += "\n";
        EXPECT_TRUE(universal->isUniversal());
        EXPECT_EQ(universal, Log::OfProcess().findElementURI(*universal)) << universal->cStr();
        EXPECT_EQ(&slate_.getUniversal(*universal), UniversalURI::FindURI(*universal)) << universal->cStr();
    }
    EXPECT_EQ("1000382E02FB1D01", DigestOf(rows)) << rows;
    EXPECT_EQ(&UniversalURI::DEPTH, UniversalURI::CATALOGUE[6]);
}

TEST_F(UniversalURITest, IsFoundAmongUniversalsOnly) {
    Slate::RegisterElementURI(new ElementURI(0, "Depth.depth", ElementURI::DATA_ELEMENT));
    Slate::RegisterElementURI(new ElementURI(1, "depth_of_wreck", ElementURI::UNIVERSAL_ELEMENT));
    EXPECT_NE(nullptr, ElementURI::FindURI("Depth.depth"));
    EXPECT_EQ(nullptr, UniversalURI::FindURI("Depth.depth"));
    EXPECT_EQ(nullptr, UniversalURI::FindURI("depth_of_wreck"));
    EXPECT_EQ(nullptr, UniversalURI::FindURI(""));
}
