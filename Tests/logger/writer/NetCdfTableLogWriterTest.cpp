#include "logger/writer/NetCdfTableLogWriter.h"

#include <gtest/gtest.h>

#include <cmath>

#include "NetCdfOutputFixture.h"

namespace {

class NetCdfTableLogWriterTest : public NetCdfOutputFixture {
protected:
    void write(NameList& names, std::initializer_list<const LogEntry*> entries, NameList* units = nullptr,
               NameList* settings = nullptr, bool interpolate = false) {
        const auto makeWriter = [&] {
            return new NetCdfTableLogWriter(path_.c_str(), false, names.count(), names.list(), ListOf(units),
                                            interpolate, CountOf(settings), ListOf(settings));
        };
        run(makeWriter, entries);
    }
};

}  // namespace

// A row a cycle, at the start of the cycle; a column keeps its value; the last cycle is written at the end.
TEST_F(NetCdfTableLogWriterTest, ARowPerCycle) {
    DataAccess* const depth = dive_->declareServing("depth", "Depth.depth", Units::METER, FLOAT3);
    DataAccess* const speed = dive_->declareServing("platform_speed_wrt_ground", "Nav.speed", Units::METER_PER_SECOND);
    DataAccess* const count = dive_->declare("Nav:log/count", Units::COUNT, USHORT2);
    DataAccess* const text = dive_->declareText("Nav.text");
    dive_->endDirectory();
    NameList names{"Depth.depth", "depth", "Nav.speed", "Nav:log/count", "Nav.text", "Nav/log:count"};
    NameList units{nullptr, "kilometer", nullptr, nullptr, nullptr, nullptr};
    write(names,
          {dive_->cycle(0), dive_->bestData(depth, 0.1, 1.5), dive_->cycle(1), dive_->data(speed, 1.1, 2.25),
           dive_->data(count, 1.2, 60000), dive_->text(text, 1.3, "hi"), dive_->cycle(2), dive_->data(depth, 2.1, 3)},
          &units);
    EXPECT_EQ("", printed_);
    const NetCdfFile file(path_);
    EXPECT_EQ(std::vector<double>({At(0), At(1), At(2)}), file.numbers("Time"));
    EXPECT_EQ(std::vector<double>({1.5, 1.5, 3}), file.numbers("Depth.depth"));
    EXPECT_TRUE(std::isnan(file.numbers("Nav.speed").at(0)));
    EXPECT_EQ(std::vector<double>({0, 60000, 60000}), file.numbers("Nav.log.count"));
    EXPECT_EQ(NC_FLOAT, file.type("Depth.depth"));
    EXPECT_EQ(NC_DOUBLE, file.type("Nav.speed"));
    EXPECT_EQ(NC_INT, file.type("Nav.log.count"));
    EXPECT_FALSE(file.has("Nav.text"));
    EXPECT_EQ("km", file.att("depth", "units"));
    EXPECT_EQ("depth", file.att("Depth.depth", "standard_name"));
    EXPECT_EQ("(none)", file.att("Depth.depth", "coordinates"));
    EXPECT_EQ("platform_speed_wrt_ground", file.att("Nav.speed", "standard_name"));
    EXPECT_EQ("Time depth latitude longitude", file.att("Nav.speed", "coordinates"));
    EXPECT_EQ("(none)", file.att("Nav.log.count", "standard_name"));
}

// The latest value of each setting, in its own type, and its unit; what the log never gives keeps its placeholder.
TEST_F(NetCdfTableLogWriterTest, SettingsAreGlobalAttributes) {
    DataAccess* const gain = dive_->declareSetting("Control.gain", Units::METER, FLOAT4);
    DataAccess* const plan = dive_->declareSetting("Control:plan", Units::NONE, STRVALUE);
    dive_->declareSetting("Control.unused", Units::METER);
    dive_->endDirectory();
    NameList names{"Control.gain"};
    NameList settings{"Control.gain", "Control:plan", "Control.plan", "Control.unused", "No.such"};
    write(names,
          {dive_->cycle(0), dive_->data(gain, 0, 0.25), dive_->text(plan, 0, "yoyo"), dive_->data(gain, 0, 0.75),
           dive_->cycle(1)},
          nullptr, &settings);
    const NetCdfFile file(path_);
    EXPECT_EQ("0.75", file.att("", "Control.gain"));
    EXPECT_EQ("meter", file.att("", "Control.gain_units"));
    EXPECT_EQ("yoyo", file.att("", "Control.plan"));
    EXPECT_EQ("(none)", file.att("", "Control.plan_units"));
    EXPECT_EQ("nan", file.att("", "Control.unused"));
    EXPECT_EQ("", file.att("", "Control.unused_units"));
    EXPECT_EQ("nan", file.att("", "No.such"));
}

// Names that the log does not know, units that do not fit, values that are none.
TEST_F(NetCdfTableLogWriterTest, WhatIsMissingIsNaN) {
    DataAccess* const depth = dive_->declare("Depth.depth", Units::METER);
    DataAccess* const count = dive_->declare("Depth.count", Units::METER, SHORT2);
    dive_->endDirectory();
    NameList names{"No.such", "Depth.depth", "Depth.count", "", "Time", "trajectory_id"};
    NameList units{nullptr, "second", "second", nullptr, nullptr, nullptr};
    write(names, {dive_->cycle(0), dive_->data(depth, 0.1, 1.5), dive_->data(count, 0.1, 3)}, &units);
    EXPECT_EQ("", printed_);
    const NetCdfFile file(path_);
    for (const char* name : {"No.such", "Depth.depth", "_"}) {
        ASSERT_EQ(1u, file.numbers(name).size()) << name;
        EXPECT_TRUE(std::isnan(file.numbers(name)[0])) << name;
    }
    EXPECT_EQ(std::vector<double>({NC_FILL_SHORT}), file.numbers("Depth.count"));
    EXPECT_EQ(std::vector<double>({At(0)}), file.numbers("Time"));
    EXPECT_EQ("s", file.att("Depth.depth", "units"));
}

// The codes of a second input may be others.
TEST_F(NetCdfTableLogWriterTest, AnotherInputContinuesTheTable) {
    NameList names{"A.a"};
    NameList settings{"S.s"};
    {
        NetCdfTableLogWriter writer(path_.c_str(), false, 1, names.list(), nullptr, false, 1, settings.list());
        for (int input = 0; input < 2; ++input) {
            dive_.reset(new SmallLog);
            if (input == 1) dive_->declare("Another.one");
            DataAccess* const setting = dive_->declareSetting("S.s", Units::METER);
            DataAccess* const a = dive_->declare("A.a", Units::METER);
            dive_->endDirectory();
            writer.write(dive_->cycle(input), nullptr);
            writer.write(dive_->data(setting, input, input + 5), nullptr);
            writer.write(dive_->data(a, input + 0.1, input), nullptr);
            writer.resetInputs();
        }
    }
    const NetCdfFile file(path_);
    EXPECT_EQ(std::vector<double>({0, 1}), file.numbers("A.a"));
    EXPECT_EQ("6", file.att("", "S.s"));
}
