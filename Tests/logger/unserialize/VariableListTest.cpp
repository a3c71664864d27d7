#include "logger/unserialize/VariableList.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "support/SmallLog.h"

class VariableListTest : public ::testing::Test {
protected:
    // What the log's directory adds, as "name unit" for each variable.
    std::string add(std::initializer_list<const char*> parents = {}, bool withSettings = true) {
        FlexArray<const char*> list;
        for (const char* const parent : parents) list.push(parent);
        list_.addDirectory(Log::Current(), list, withSettings);
        OutputVariables variables;
        list_.giveTo(variables);
        std::string all;
        for (int i = 0; i < variables.requested_.count(); ++i) {
            const RequestedVariable& variable = variables.requested_.at(i);
            all += std::string(i == 0 ? "" : ", ") + variable.name_ + " " + variable.unit_;
        }
        return all;
    }
    std::string settings() const {
        OutputVariables variables;
        list_.giveTo(variables);
        std::string all;
        for (int i = 0; i < variables.settings_.count(); ++i) all += std::string(variables.settings_.at(i).name_) + " ";
        return all;
    }

    SmallLog log_;
    VariableList list_;
};

TEST_F(VariableListTest, VariablesAndUniversalsInTheOrderOfCodes) {
    log_.declareServing("depth", "Depth.depth", Units::METER);
    log_.declare("Nav.speed", Units::METER_PER_SECOND);
    log_.declareServing("depth", "Backup.depth", Units::METER);
    EXPECT_EQ("Depth.depth meter, depth meter, Nav.speed meter_per_second, Backup.depth meter", add());
    EXPECT_EQ("", settings());
}

TEST_F(VariableListTest, ParentsSelectVariablesButNeverUniversals) {
    log_.declareServing("depth", "Depth.depth", Units::METER);
    log_.declare("Nav.x");
    log_.declare("NavX.y");
    log_.declare("lone");
    EXPECT_EQ("depth meter, Nav.x none", add({"Nav"}));
    EXPECT_EQ("depth meter, Nav.x none", add({"Navigation"}));
}

TEST_F(VariableListTest, SettingsAreListedApart) {
    log_.declareSetting("Nav.gain");
    log_.declare("Nav.mode", Units::NONE, DOUBLE8, ElementURI::CONFIG_ELEMENT);
    log_.declare("Config/Nav.limit");
    log_.declareSetting("Nav.keyText");
    log_.declare("Nav.x");
    EXPECT_EQ("Nav.x none", add({}, false));
    EXPECT_EQ("", settings());  // which the first input alone gives
    EXPECT_EQ("Nav.x none", add());
    EXPECT_EQ("Nav.gain Nav.mode Config/Nav.limit ", settings());
    add();
    EXPECT_EQ("Nav.gain Nav.mode Config/Nav.limit ", settings());  // once each
}

TEST_F(VariableListTest, AReadingThatIsRepeatedCountsAsASetting) {
    DataAccess* const depth = log_.declare("Depth.depth", Units::METER);
    DataAccess* const speed = log_.declare("Nav.speed");
    for (DataAccess* const access : {speed, depth}) log_.declareReader("Nav", access);
    log_.declareReader("Control", depth);
    EXPECT_EQ("Depth.depth meter, Nav.speed none", add());
    EXPECT_EQ("", settings());  // another component's, another element's, or one after a writing
    log_.declareReader("Control", depth);
    EXPECT_EQ("Depth.depth meter, Nav.speed none", add());
    EXPECT_EQ("Depth.depth ", settings());
}

TEST_F(VariableListTest, BookkeepingIsLeftOut) {
    log_.declare("Mission:Dive.durationOfLastRun");
    log_.declare("Mission.durationOfLastRun");
    log_.declare("Mission:Dive.depth");
    EXPECT_EQ("Mission.durationOfLastRun none, Mission:Dive.depth none", add());
}
