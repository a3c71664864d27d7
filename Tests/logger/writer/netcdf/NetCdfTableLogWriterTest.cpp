#include "logger/writer/netcdf/NetCdfTableLogWriter.h"

#include "NetCdfOutputFixture.h"

class NetCdfTableLogWriterTest : public NetCdfOutputFixture {
protected:
    LogWriter* newWriter(NameList& names, NameList& units, NameList& settings) override {
        return new NetCdfTableLogWriter(path_.c_str(), false, names.count(), names.list(), units.listOrNull(), false,
                                        settings.count(), settings.list());
    }
    struct Attribute {
        const char* variable_;
        const char* name_;
        const char* value_;
    };
    void expectAttributes(std::initializer_list<Attribute> attributes) {
        const NetCdfFile file(path_);
        for (const Attribute& a : attributes) {
            EXPECT_EQ(a.value_, file.att(a.variable_, a.name_)) << a.variable_ << ':' << a.name_;
        }
    }
};

// A row a cycle, at the start of the cycle; a column keeps its value; what comes before the first cycle belongs to it,
// and the last one is written at the end.
TEST_F(NetCdfTableLogWriterTest, ARowPerCycle) {
    DataAccess* const depth = log_.declareServing("depth", "Depth.depth", Units::METER, FLOAT3);
    DataAccess* const speed = log_.declareServing("platform_speed_wrt_ground", "Nav.speed", Units::METER_PER_SECOND);
    DataAccess* const count = log_.declare("Nav:log/count", Units::COUNT, USHORT2);
    DataAccess* const text = log_.declareText("Nav.text");
    log_.declareServing("latitude", "latitude", Units::DEGREE);
    log_.endDirectory();
    write({"Depth.depth", "depth", "Nav.speed", "Nav:log/count", "Nav.text", "Nav/log:count", "latitude"},
          {log_.data(count, -1, 7), log_.cycle(0), log_.bestData(depth, 0.1, 1.5), log_.cycle(1),
           log_.data(speed, 1.1, 2.25), log_.data(count, 1.2, 9), log_.data(count, 1.2, 60000),
           log_.text(text, 1.3, "hi"), log_.running("Nav", 1.4, 1), log_.cycle(2), log_.data(depth, 2.1, 3)},
          {nullptr, "kilometer", nullptr, nullptr, nullptr, nullptr, nullptr});
    EXPECT_EQ("", printed_);
    const NetCdfFile file(path_);
    EXPECT_EQ(Numbers({At(0), At(1), At(2)}), file.numbers("Time"));
    EXPECT_EQ(Numbers({1.5, 1.5, 3}), file.numbers("Depth.depth"));
    EXPECT_TRUE(std::isnan(file.numbers("Nav.speed").at(0)));
    EXPECT_EQ(Numbers({7, 60000, 60000}), file.numbers("Nav.log.count"));
    EXPECT_EQ(NC_FLOAT, file.type("Depth.depth"));
    EXPECT_EQ(NC_DOUBLE, file.type("Nav.speed"));
    EXPECT_EQ(NC_INT, file.type("Nav.log.count"));
    EXPECT_FALSE(file.has("Nav.text"));
    expectAttributes({{"depth", "units", "km"},
                      {"Depth.depth", "standard_name", "depth"},
                      {"Depth.depth", "coordinates", "(none)"},
                      {"latitude", "standard_name", "latitude"},
                      {"latitude", "long_name", "latitude"},
                      {"Nav.speed", "standard_name", "platform_speed_wrt_ground"},
                      {"Nav.speed", "coordinates", "Time depth latitude longitude"},
                      {"Nav.log.count", "standard_name", "(none)"}});
}

// The latest value of each setting, in its own type, and its unit; what the log never gives keeps its placeholder.
TEST_F(NetCdfTableLogWriterTest, SettingsAreGlobalAttributes) {
    DataAccess* const gain = log_.declareSetting("Control.gain", Units::METER, FLOAT4);
    DataAccess* const plan = log_.declareSetting("Control:plan", Units::NONE, STRVALUE);
    log_.declareSetting("Control.unused", Units::METER);
    log_.endDirectory();
    write(
        {"Control.gain"},
        {log_.cycle(0), log_.data(gain, 0, 0.25), log_.text(plan, 0, "yoyo"), log_.data(gain, 0, 0.75), log_.cycle(1)},
        {}, {"Control.gain", "Control:plan", "Control.plan", "Control.unused", "No.such"});
    expectAttributes({{"", "Control.gain", "0.75"},
                      {"", "Control.gain_units", "meter"},
                      {"", "Control.plan", "yoyo"},
                      {"", "Control.plan_units", "(none)"},
                      {"", "Control.unused", "nan"},
                      {"", "Control.unused_units", ""},
                      {"", "No.such", "nan"}});
}

// Names that the log does not know, units that do not fit, values that are none.
TEST_F(NetCdfTableLogWriterTest, WhatIsMissingIsNaN) {
    DataAccess* const depth = log_.declare("Depth.depth", Units::METER);
    DataAccess* const count = log_.declare("Depth.count", Units::METER, SHORT2);
    log_.endDirectory();
    write({"No.such", "Depth.depth", "Depth.count", "", "Time", "trajectory_id", "No.such"},
          {log_.cycle(0), log_.data(depth, 0.1, 1.5), log_.data(count, 0.1, 3)},
          {nullptr, "second", "second", nullptr, nullptr, nullptr, "meter"});
    EXPECT_EQ("", printed_);
    const NetCdfFile file(path_);
    for (const char* name : {"No.such", "Depth.depth", "_"}) {
        ASSERT_EQ(1u, file.numbers(name).size()) << name;
        EXPECT_TRUE(std::isnan(file.numbers(name)[0])) << name;
    }
    EXPECT_EQ(Numbers({NC_FILL_SHORT}), file.numbers("Depth.count"));
    EXPECT_EQ(Numbers({At(0)}), file.numbers("Time"));
    EXPECT_EQ("s", file.att("Depth.depth", "units"));
    EXPECT_EQ("m", file.att("No.such", "units"));
}

TEST_F(NetCdfTableLogWriterTest, WithoutACycleTheOnlyRowHasNoTime) {
    DataAccess* const depth = log_.declare("Depth.depth", Units::METER);
    log_.endDirectory();
    write({"Depth.depth"}, {log_.data(depth, 0, 1.5)});
    const NetCdfFile file(path_);
    EXPECT_EQ(Numbers({1.5}), file.numbers("Depth.depth"));
    ASSERT_EQ(1u, file.numbers("Time").size());
    EXPECT_TRUE(std::isnan(file.numbers("Time")[0]));
}

// The codes of a second input may be others.
TEST_F(NetCdfTableLogWriterTest, AnotherInputContinuesTheTable) {
    NameList names{"A.a"}, units, settings{"S.s"};
    {
        const std::unique_ptr<LogWriter> writer(newWriter(names, units, settings));
        for (int input = 0; input < 2; ++input) {
            SmallLog log(Log::Current());
            if (input == 1) log.declare("Another.one");
            DataAccess* const setting = log.declareSetting("S.s", Units::METER);
            DataAccess* const a = log.declare("A.a", Units::METER);
            log.endDirectory();
            writer->write(log.cycle(input), nullptr);
            writer->write(log.data(setting, input, input + 5), nullptr);
            writer->write(log.data(a, input + 0.1, input), nullptr);
            writer->resetInputs();
        }
    }
    EXPECT_EQ(Numbers({0, 1}), NetCdfFile(path_).numbers("A.a"));
    expectAttributes({{"", "S.s", "6"}});
}

// Its rows so far stay.
TEST_F(NetCdfTableLogWriterTest, OneThatEndsForWantOfMemoryIsIncomplete) {
    DataAccess* const depth = log_.declare("Depth.depth", Units::METER);
    log_.endDirectory();
    NameList names{"Depth.depth", "No.such"};
    NetCdfTableLogWriter table(path_.c_str(), false, names.count(), names.list(), nullptr, true, 0, nullptr);
    for (int i = 0; i < 3; ++i) table.write(log_.data(depth, i, i), nullptr);
    table.freeMemory();
    table.write(log_.data(depth, 3, 3), nullptr);
    table.writeFooter();
    EXPECT_EQ(Numbers({0, 1, 2}), NetCdfFile(path_).numbers("Depth.depth"));
    EXPECT_FALSE(table.isWhole() || table.getOutcome()->isWhole());
    EXPECT_EQ(Lines{"ERROR Failed to write " + path_ + ": Cannot allocate memory"}, messages_.take());
}
