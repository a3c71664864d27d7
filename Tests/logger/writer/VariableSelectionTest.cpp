#include "logger/writer/VariableSelection.h"

#include <gtest/gtest.h>

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
    VariableSelection selection(names.count(), names.list(), units.list());
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
    EXPECT_FALSE(selection.isFound(0) || selection.isUniversal(1) || selection.isResolved());
}

TEST_F(VariableSelectionTest, ANameListedTwiceMapsToItsLastIndex) {
    DataAccess* depth = log_.declare("Depth.depth");
    NameList names{"Depth.depth", "Depth.rate", "Depth.depth"};
    VariableSelection selection(names.count(), names.list(), nullptr);
    EXPECT_FALSE(selection.resolve());
    EXPECT_EQ(2, selection.indexOf(depth->getElementCode()));
    for (int code : {16382, 16383, 16384, 65534, 65535}) {  // which a log may say, and no lookup holds
        EXPECT_EQ(-1, selection.indexOf(static_cast<unsigned short>(code)));
    }
    EXPECT_EQ(0, selection.firstIndexOfName(2));
}
