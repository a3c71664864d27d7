#include "logger/writer/VariableSelection.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "support/NameList.h"
#include "support/SmallLog.h"

class VariableSelectionTest : public testing::Test {
protected:
    SmallLog log_;
};

// Until it is reset.
TEST_F(VariableSelectionTest, FindsCodesAndUnits) {
    log_.declare("Depth.rate");
    DataAccess* depth = log_.declareServing("depth", "Depth.depth", Units::METER);
    NameList names{"Depth.depth", "depth", "Depth.rate"};
    NameList units{"cm", nullptr, "no such unit"};
    VariableSelection selection({names.count(), names.list(), units.list()});
    EXPECT_TRUE(selection.resolve());
    EXPECT_EQ(0, selection.indexOf(depth->getElementCode()));
    EXPECT_EQ(1, selection.indexOf(depth->getUniversalCode()));
    EXPECT_FALSE(selection.isUniversal(0));
    EXPECT_TRUE(selection.isUniversal(1));
    EXPECT_EQ(nullptr, selection.unit(2));
    EXPECT_EQ(&Units::CENTIMETER, selection.shownUnit(0));
    EXPECT_EQ(&Units::METER, selection.shownUnit(1));
    EXPECT_EQ(&Units::NONE, selection.shownUnit(2));
    selection.reset();
    EXPECT_EQ(-1, selection.indexOf(depth->getElementCode()));
    EXPECT_FALSE(selection.isFound(0) || selection.isUniversal(1));
}

TEST_F(VariableSelectionTest, ANameListedTwiceMapsToItsLastIndex) {
    DataAccess* depth = log_.declare("Depth.depth");
    NameList names{"Depth.depth", "Depth.rate", "Depth.depth"};
    VariableSelection selection({names.count(), names.list()});
    EXPECT_FALSE(selection.resolve());
    EXPECT_EQ(2, selection.indexOf(depth->getElementCode()));
    for (int code : {16382, 16383, 16384, 65534, 65535}) {  // which a log may say, and no lookup holds
        EXPECT_EQ(-1, selection.indexOf(static_cast<unsigned short>(code)));
    }
    EXPECT_EQ(0, selection.firstIndexOfName(2));
}

TEST_F(VariableSelectionTest, ANameListedAgainMayBringItsUnit) {
    log_.declare("Depth.depth", Units::METER);
    log_.declareUntyped("Depth.open");
    NameList names{"No.such", "Depth.depth", "Depth.open", "No.such", "Depth.depth", "Depth.open"};
    NameList units{nullptr, nullptr, nullptr, "second", "cm", "second"};
    VariableSelection selection({names.count(), names.list(), units.list()});
    selection.resolve();
    EXPECT_EQ(&Units::SECOND, selection.shownUnit(0));
    EXPECT_EQ(&Units::METER, selection.shownUnit(1));
    EXPECT_EQ(&Units::CENTIMETER, selection.shownUnit(4));
    EXPECT_EQ(nullptr, selection.shownUnit(5));
}

TEST_F(VariableSelectionTest, OfManyThatAreMissingTheFirstAreNamed) {
    NameList names;
    std::string expected;
    for (int i = 0; i < 23; ++i) {
        names.add("No.such" + std::to_string(i));
        if (i < 20) expected += "Could not find variable \"No.such" + std::to_string(i) + "\"\n";
    }
    testing::internal::CaptureStdout();
    VariableSelection({names.count(), names.list()}).printMissing([](int) { return false; });
    EXPECT_EQ(expected + "Could not find variable: 3 more\n", testing::internal::GetCapturedStdout());
}

// Of a universal its own, of another variable that of the universal which it serves.
TEST_F(VariableSelectionTest, StandardNames) {
    const unsigned short depth = log_.declareServing("depth", "Depth.depth")->getUniversalCode();
    const unsigned short other = log_.declare("Depth.rate")->getElementCode();
    DataAccess* const supplier = log_.declareServing("turbidity", "Ctd.turbidity");  // which no catalogue lists
    NameList names{"depth", "Depth.depth", "No.such", "turbidity"};
    VariableSelection selection({names.count(), names.list()});
    selection.resolve();
    EXPECT_EQ(supplier, selection.access(3));
    const std::tuple<int, int, const char*> cases[] = {
        {0, depth, "depth"},  {1, depth, "depth"},      {2, depth, "depth"},       {0, other, "depth"},
        {0, 0xFFFF, "depth"}, {1, 0xFFFF, "none"},      {0, 0x3FFF, "none"},       {1, 0x3FFF, "none"},
        {0, 0x4000, "none"},  {3, 0xFFFF, "turbidity"}, {1, other + 1000, "none"}, {2, 0xFFFF, "none"}};
    for (const auto& [index, code, expected] : cases) {
        const ElementURI* const name = selection.standardName(index, static_cast<unsigned short>(code));
        EXPECT_STREQ(expected, name == nullptr ? "none" : name->cStr()) << index << ' ' << code;
    }
}
