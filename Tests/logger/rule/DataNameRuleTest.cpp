#include "logger/rule/DataNameRule.h"

#include <gtest/gtest.h>

#include "support/SmallLog.h"

TEST(DataNameRuleTest, AdmitsWritesOfTheElementAlsoWhenTheLogGivesItLater) {
    SmallLog log;
    DataAccess* rate = log.declare("Depth.rate");
    DataNameRule rule("Depth.depth", true);
    EXPECT_FALSE(rule.check(log.data(rate, 0, 0.5)));
    DataAccess* depth = log.declare("Depth.depth", Units::METER);
    EXPECT_TRUE(rule.check(log.data(depth, 1, 2.5)));
    EXPECT_FALSE(rule.check(log.data(rate, 1, 2.5)));
    EXPECT_FALSE(rule.check(log.data(log.declareReader("Navigation", depth), 1, 2.5)));
    EXPECT_FALSE(rule.check(log.cycle(1)));
    EXPECT_STREQ("dataName=Depth.depth, dataWrite=true", rule.toString().cStr());
}

TEST(DataNameRuleTest, AdmitsABestValueUnderItsUniversalName) {
    SmallLog log;
    DataAccess* depth = log.declareServing("depth", "Depth.depth", Units::METER);
    DataNameRule rule("depth", true);
    EXPECT_FALSE(rule.check(log.data(depth, 1, 2.5)));
    EXPECT_TRUE(rule.check(log.bestData(depth, 1, 2.5)));
}

// Its code is the one of names without a code, and so may be that of a hostile access.
TEST(DataNameRuleTest, AdmitsNothingWhileTheLogDoesNotKnowTheName) {
    SmallLog log;
    DataAccess* rate = log.declare("Depth.rate", Units::METER_PER_SECOND);
    DataAccess stray(0, ElementURI::NO_CODE, ElementURI::NO_CODE, Units::METER, DOUBLE8, 8, 7,
                     DataAccessor::DATA_WRITER);
    DataNameRule universal("depth", true);  // registered, but without a code
    EXPECT_FALSE(universal.check(log.bestData(rate, 1, 0.5)));
    EXPECT_FALSE(universal.check(log.bestData(&stray, 1, 0.5)));
}
