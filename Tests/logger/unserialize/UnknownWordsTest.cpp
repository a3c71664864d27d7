#include "logger/unserialize/UnknownWords.h"

#include <gtest/gtest.h>

#include "support/CountOf.h"
#include "support/SmallLog.h"

class UnknownWordsTest : public ::testing::Test {
protected:
    void name(const char* variable, const char* unit = nullptr) {
        settings_.variables_.requested_.add({variable, unit});
    }
    void parent(const char* component) { settings_.parents_.push(component); }

    // What is left to say after logs that declare the names given, in metres.
    std::string complaints(std::initializer_list<std::initializer_list<const char*>> logs, bool hasEntries = true) {
        SmallLog log;
        UnknownWords words(settings_, Log::Current());
        for (const auto& names : logs) {
            Slate::ClearDirectory();
            for (const char* const name : names) log.declareServing("depth", name, Units::METER);
            words.askLog();
        }
        words.complain(hasEntries);
        std::string all;
        for (unsigned int i = 0; i < settings_.complaints_.size(); ++i) {
            all += std::string(settings_.complaints_.at(i)->cStr()) + "\n";
        }
        settings_.complaints_.clear();
        return all;
    }

    RunSettings settings_;
};

TEST_F(UnknownWordsTest, NamesThatNoLogHas) {
    for (const char* const variable : {"Nav.x", "depth", "latitude", "No.such", "Nav.y", "No.such"}) name(variable);
    EXPECT_EQ(
        "No variable \"latitude\" is in the logs\n"  // a standard name that no element serves
        "No variable \"No.such\" is in the logs\n",
        complaints({{"Nav.x"}, {"Nav.y"}}));
    EXPECT_EQ("", complaints({})) << "no log, nothing known";
    EXPECT_EQ(5u, CountOf(complaints({{}}), "No variable")) << "a log without a directory";
}

TEST_F(UnknownWordsTest, UnitsThatDoNotFit) {
    name("Nav.x", "second");
    name("depth", "radian");
    name("Nav.x", "foot");
    name("Nav.x", "count");         // without a dimension
    name("Nav.x", "no_such_unit");  // which the command line's reader tells
    name("Nav.gone", "second");
    EXPECT_EQ(
        "The unit \"second\" does not fit the variable \"Nav.x\"\n"
        "The unit \"radian\" does not fit the variable \"depth\"\n"
        "No variable \"Nav.gone\" is in the logs\n",
        complaints({{"Nav.x"}, {"Nav.y"}}));
}

TEST_F(UnknownWordsTest, ComponentsAndMissions) {
    for (const char* const component : {"Nav", "Navigation", "Na", "nav"}) parent(component);
    settings_.missionName_ = "Nav";
    EXPECT_EQ(
        "No variable of the component \"Na\" is in the logs\n"
        "No variable of the component \"nav\" is in the logs\n",
        complaints({{}, {"Nav.x"}, {}}));
    settings_.parents_.clear();
    settings_.missionName_ = "Survey";
    EXPECT_EQ("No mission \"Survey\" is in the logs\n", complaints({{"Nav.x"}}, false));
}

TEST_F(UnknownWordsTest, ASelectionThatLeavesNoEntry) {
    EXPECT_EQ("", complaints({{"Nav.x"}}, false)) << "nothing is selected";
    settings_.missionName_ = "Nav";
    EXPECT_EQ("No entry lies within -r Nav\n", complaints({{"Nav.x"}}, false));
    settings_.startTime_ = SmallLog::At(0);
    settings_.endTime_ = SmallLog::At(0.5);
    EXPECT_EQ("No entry lies within -s 2012-06-01T12:30:00.000Z -e 2012-06-01T12:30:00.500Z -r Nav\n",
              complaints({{"Nav.x"}}, false));
    EXPECT_EQ("", complaints({{"Nav.x"}}));
    settings_.endTime_ = SmallLog::At(-1);
    EXPECT_EQ("", complaints({{"Nav.x"}}, false)) << "a reversed window is told before";
}
