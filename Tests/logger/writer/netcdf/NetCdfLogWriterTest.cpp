#include "logger/writer/netcdf/NetCdfLogWriter.h"

#include "NetCdfOutputFixture.h"
#include "support/CountOf.h"

class NetCdfLogWriterTest : public NetCdfOutputFixture {
protected:
    LogWriter* newWriter(NameList& names, NameList& units, NameList& settings) override {
        return new NetCdfLogWriter(path_.c_str(), true, names.count(), names.list(), units.listOrNull(),
                                   settings.count(), settings.list());
    }
};

// Every sample, at its own time, in the component's group.
TEST_F(NetCdfLogWriterTest, EveryNameHasItsOwnTimeAxis) {
    DataAccess* const depth = log_.declareServing("depth", "Depth.depth", Units::METER, FLOAT3);
    DataAccess* const rate = log_.declareServing("depth_rate", "Depth.rate", Units::METER_PER_SECOND);
    DataAccess* const mode = log_.declare("Nav.part:mode", Units::ENUM, UCHAR1);
    DataAccess* const setting = log_.declareSetting("Nav.gain", Units::RATIO, FLOAT4);
    log_.declareServing("latitude", "latitude", Units::DEGREE);
    log_.endDirectory();
    write({"Depth.depth", "depth", "Depth.rate", "Nav.part:mode", "Depth.depth", "latitude"},
          {log_.cycle(0), log_.bestData(depth, 0.25, 1500), log_.data(depth, 0.5, 2500), log_.data(mode, 0.5, 200),
           log_.data(rate, 1.5, 0.125), log_.data(setting, 2, 0.5), log_.cycle(3)},
          {"kilometer", nullptr, nullptr, nullptr, nullptr, nullptr}, {"Nav.gain", "Depth.rate"});
    EXPECT_EQ("", printed_);
    const NetCdfFile file(path_);
    const std::pair<const char*, Numbers> variables[] = {{"Depth/Depth.depth", {1.5, 2.5}},
                                                         {"Depth/Depth.depth_time", {At(0.25), At(0.5)}},
                                                         {"depth", {1500}},
                                                         {"depth_time", {At(0.25)}},
                                                         {"part/Nav.part.mode", {200}},
                                                         {"Nav/Nav.gain", {0.5}}};
    for (const auto& [name, numbers] : variables) EXPECT_EQ(numbers, file.numbers(name)) << name;
    EXPECT_EQ(NC_FLOAT, file.type("Depth/Depth.depth"));
    EXPECT_EQ(NC_UBYTE, file.type("part/Nav.part.mode"));
    EXPECT_EQ("seconds since 1970-01-01 00:00:00Z", file.att("Depth/Depth.depth_time", "units"));
    EXPECT_EQ("(none)", file.att("Depth/Depth.depth", "coordinates"));
    EXPECT_EQ("latitude", file.att("latitude", "standard_name"));
    EXPECT_EQ("latitude", file.att("latitude", "long_name"));
    EXPECT_EQ("depth_rate", file.att("Depth/Depth.rate", "standard_name"));
    EXPECT_EQ("time depth latitude longitude", file.att("Depth/Depth.rate", "coordinates"));
}

// The objects of a log may be gone when the next one comes; what a variable is stays as the first log had it.
TEST_F(NetCdfLogWriterTest, TheNextInputAddsToTheSameVariables) {
    NameList names({"B.row"}), none({});
    const std::unique_ptr<LogWriter> writer(newWriter(names, none, none));
    for (const int input : {0, 1}) {
        SmallLog log(Log::Current());
        if (input == 1) log.declare("A.other");
        DataAccess* const row = log.declareBlob("B.row", Units::NONE, BLOB_INT16LE, 2);
        log.endDirectory();
        writer->write(log.blob<short>(row, input, {static_cast<short>(input), 5}), nullptr);
        writer->resetInputs();
        Log::Current().uninitialize();
    }
    writer->writeFooter();
    EXPECT_EQ(Numbers({0, 5, 1, 5}), NetCdfFile(path_).numbers("B/B.row"));
}

// Arrays keep their shape; what a value lacks is missing; texts are texts.
TEST_F(NetCdfLogWriterTest, ArraysAndTexts) {
    DataAccess* const matrix = log_.declareBlob("B.matrix", Units::METER, BLOB_FLOAT64LE, 2, 2);
    DataAccess* const cube = log_.declareBlob("B.cube", Units::NONE, BLOB_UINT8, 1, 2, 2);
    DataAccess* const row = log_.declareBlob("B.row", Units::NONE, BLOB_INT16LE, 3);
    DataAccess* const loose = log_.declareBlob("B.loose", Units::NONE, BLOB_FLOAT32LE);
    DataAccess* const text = log_.declareText("B.text");
    log_.endDirectory();
    write({"B.matrix", "B.cube", "B.row", "B.loose", "B.text"},
          {log_.blob<double>(matrix, 0, {1000, 2000, 3000, 4000}), log_.blob<double>(matrix, 1, {5000}),
           log_.blob<unsigned char>(cube, 0, {1, 2, 3, 255}), log_.blob<short>(row, 0, {-1, 2}),
           log_.blob<float>(loose, 0, {1, 2, 3}), log_.text(text, 0, Str("one\0two", 7)), log_.text(text, 1, "")},
          {"kilometer", nullptr, nullptr, nullptr, nullptr});
    EXPECT_EQ("", printed_);
    const NetCdfFile file(path_);
    EXPECT_EQ(std::vector<size_t>({2, 2, 2}), file.shape("B/B.matrix"));
    Numbers matrices = file.numbers("B/B.matrix");
    EXPECT_TRUE(std::isnan(matrices[5]) && std::isnan(matrices[7]));
    matrices.resize(5);
    EXPECT_EQ(Numbers({1, 2, 3, 4, 5}), matrices);
    EXPECT_EQ(std::vector<size_t>({1, 1, 2, 2}), file.shape("B/B.cube"));
    EXPECT_EQ(Numbers({1, 2, 3, 255}), file.numbers("B/B.cube"));
    EXPECT_EQ(Numbers({-1, 2, NC_FILL_SHORT}), file.numbers("B/B.row"));
    EXPECT_EQ(std::vector<size_t>({1}), file.shape("B/B.loose"));
    EXPECT_TRUE(std::isnan(file.numbers("B/B.loose")[0]));
    EXPECT_EQ(Lines({"one", ""}), file.texts("B/B.text"));
}

// A name whose place is taken is left out, and nothing else is disturbed.
TEST_F(NetCdfLogWriterTest, NamesThatCollide) {
    const auto sample = [this](const char* name, double value) { return log_.data(log_.declare(name), value, value); };
    const char* const odd = "-\x01\xFF ";
    const std::initializer_list<const LogEntry*> samples = {
        sample("A.b/c", 1), sample("A.b:c", 2), sample("Taken", 3),         sample("Taken.x", 4), sample("C.x_time", 5),
        sample("C.x", 6),   sample(odd, 8),     sample("trajectory_id", 7), sample("C.y", 9)};
    log_.endDirectory();
    write({"A.b/c", "A.b:c", "Taken", "Taken.x", "C.x_time", "C.x", "trajectory_id", odd, "C.y"}, samples);
    EXPECT_EQ(
        "Failed to add variable: A.b:c (index 1).\n"
        "nc_def_grp failed to define a new NetCdf group for var Taken with error: Name is in use (code -42).\n"
        "NetCdfLogWriter failed to add group Taken while processing Taken.x (index 3).\n"
        "Failed to add variable: C.x (index 5).\n"
        "Failed to add variable: trajectory_id (index 6).\n",
        printed_);
    const NetCdfFile file(path_);
    const std::pair<const char*, double> places[] = {
        {"b/A.b.c", 1}, {"Taken", 3}, {"C/C.x_time", 5}, {"C/C.y", 9}, {"____", 8}};
    for (const auto& [place, value] : places) EXPECT_EQ(Numbers{value}, file.numbers(place)) << place;
    EXPECT_FALSE(file.has("C/C.x"));
}

// Variables, groups and dimensions share their names; a clash costs the one that comes later, never the file.
TEST_F(NetCdfLogWriterTest, NamesOfDimensionsCollideToo) {
    const auto sample = [this](const char* name) { return log_.data(log_.declare(name), 0, 1); };
    const auto array = [this](const char* name) {
        return log_.blob<double>(log_.declareBlob(name, Units::NONE, BLOB_FLOAT64LE, 1, 2), 0, {1, 2});
    };
    const std::initializer_list<const LogEntry*> samples = {
        sample("A.field_N"), array("A.field"), sample("yy_time.q"),           sample("yy"), array("mat"),
        sample("mat_M.q"),   sample("mat_N"),  sample("trajectoryNameLen.x"), sample("A"),  sample("A_time.q")};
    log_.endDirectory();
    write(
        {"A.field_N", "A.field", "yy_time.q", "yy", "mat", "mat_M.q", "mat_N", "trajectoryNameLen.x", "A", "A_time.q"},
        samples);
    EXPECT_EQ(3u, CountOf(printed_, "Failed to add variable: ")) << printed_;
    EXPECT_EQ(2u, CountOf(printed_, "Name is in use (code -42).\n")) << printed_;
    const NetCdfFile file(path_);
    for (const char* place : {"A/A.field_N", "yy_time/yy_time.q", "mat", "mat_N", "A_time/A_time.q"}) {
        EXPECT_FALSE(file.numbers(place).empty()) << place;
    }
}

// Values whose class is not the variable's, as another access of the same name may bring them.
TEST_F(NetCdfLogWriterTest, ValuesOfAnotherKind) {
    DataAccess* const number = log_.declare("C.number", Units::METER, SHORT2);
    DataAccess* const text = log_.declareText("C.text");
    DataAccess* const blob = log_.declareBlob("C.blob", Units::NONE, BLOB_UINT16LE, 2);
    log_.endDirectory();
    const auto with = [](DataAccess* access, double seconds, DataValue* value) {
        return std::make_unique<DataEntry>(access, value, SmallLog::At(seconds), false, true);
    };
    const auto meters = [](double value) { return Units::METER.dataValue(value, DOUBLE8); };
    write({"C.number", "C.text", "C.blob"},
          {with(number, 0, new StrValue("text")).get(), with(number, 1, meters(NAN)).get(),
           with(number, 2, meters(1e30)).get(), with(number, 3, nullptr).get(), with(text, 0, meters(1.5)).get(),
           with(blob, 0, meters(1.5)).get(), log_.data(number, 4, -7)});
    const NetCdfFile file(path_);
    const double fill = NC_FILL_SHORT;
    EXPECT_EQ(Numbers({fill, fill, -1, fill, -7}), file.numbers("C/C.number"));
    EXPECT_EQ(Lines({""}), file.texts("C/C.text"));
    EXPECT_EQ(Numbers({NC_FILL_USHORT, NC_FILL_USHORT}), file.numbers("C/C.blob"));
}

// Blocks of any size hold the same, value for value.
TEST_F(NetCdfLogWriterTest, BlocksDoNotShow) {
    DataAccess* const a = log_.declare("A.a", Units::METER, FLOAT4);
    DataAccess* const text = log_.declareText("A.text");
    DataAccess* const row = log_.declareBlob("A.row", Units::NONE, BLOB_INT16LE, 3);
    log_.endDirectory();
    NameList names{"A.a", "A.text", "A.row"};
    for (const char* blocks : {"single", "usual"}) {
        NetCdfLogWriter writer(dir_.path(blocks).c_str(), true, names.count(), names.list(), nullptr, 0, nullptr);
        if (blocks == std::string("single")) writer.setBlockRecords(1);
        for (int sample = 0; sample < 600; ++sample) {
            writer.write(log_.data(a, sample, sample * 0.5), nullptr);
            if (sample % 2 == 0) writer.write(log_.text(text, sample, std::to_string(sample).c_str()), nullptr);
            if (sample % 3 == 0) writer.write(log_.blob<short>(row, sample, {short(sample), 1}), nullptr);
        }
    }
    const NetCdfFile single(dir_.path("single")), usual(dir_.path("usual"));
    EXPECT_EQ(600u, usual.numbers("A/A.a").size());
    for (const char* name : {"A/A.a", "A/A.a_time", "A/A.text_time", "A/A.row", "A/A.row_time"}) {
        EXPECT_EQ(single.numbers(name), usual.numbers(name)) << name;
    }
    EXPECT_EQ(single.texts("A/A.text"), usual.texts("A/A.text"));
}
