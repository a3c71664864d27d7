#include "logger/writer/NetCdfLogWriter.h"

#include <gtest/gtest.h>

#include <cmath>

#include "NetCdfOutputFixture.h"

namespace {

class NetCdfLogWriterTest : public NetCdfOutputFixture {
protected:
    void write(NameList& names, std::initializer_list<const LogEntry*> entries, NameList* units = nullptr,
               NameList* settings = nullptr) {
        const auto makeWriter = [&] {
            return new NetCdfLogWriter(path_.c_str(), true, names.count(), names.list(), ListOf(units),
                                       CountOf(settings), ListOf(settings));
        };
        run(makeWriter, entries);
    }
};

}  // namespace

// Every sample, at its own time, in the component's group.
TEST_F(NetCdfLogWriterTest, EveryNameHasItsOwnTimeAxis) {
    DataAccess* const depth = dive_->declareServing("depth", "Depth.depth", Units::METER, FLOAT3);
    DataAccess* const rate = dive_->declareServing("depth_rate", "Depth.rate", Units::METER_PER_SECOND);
    DataAccess* const mode = dive_->declare("Nav.part:mode", Units::ENUM, UCHAR1);
    DataAccess* const setting = dive_->declareSetting("Nav.gain", Units::RATIO, FLOAT4);
    dive_->endDirectory();
    NameList names{"Depth.depth", "depth", "Depth.rate", "Nav.part:mode", "Depth.depth"};
    NameList units{"kilometer", nullptr, nullptr, nullptr, nullptr};
    NameList settings{"Nav.gain", "Depth.rate"};
    write(names,
          {dive_->cycle(0), dive_->bestData(depth, 0.25, 1500), dive_->data(depth, 0.5, 2500),
           dive_->data(mode, 0.5, 200), dive_->data(rate, 1.5, 0.125), dive_->data(setting, 2, 0.5), dive_->cycle(3)},
          &units, &settings);
    EXPECT_EQ("", printed_);
    const NetCdfFile file(path_);
    EXPECT_EQ(std::vector<double>({1.5, 2.5}), file.numbers("Depth/Depth.depth"));
    EXPECT_EQ(std::vector<double>({At(0.25), At(0.5)}), file.numbers("Depth/Depth.depth_time"));
    EXPECT_EQ(std::vector<double>({1500}), file.numbers("depth"));
    EXPECT_EQ(std::vector<double>({At(0.25)}), file.numbers("depth_time"));
    EXPECT_EQ(std::vector<double>({200}), file.numbers("part/Nav.part.mode"));
    EXPECT_EQ(std::vector<double>({0.5}), file.numbers("Nav/Nav.gain"));
    EXPECT_EQ(NC_FLOAT, file.type("Depth/Depth.depth"));
    EXPECT_EQ(NC_UBYTE, file.type("part/Nav.part.mode"));
    EXPECT_EQ("seconds since 1970-01-01 00:00:00Z", file.att("Depth/Depth.depth_time", "units"));
    EXPECT_EQ("(none)", file.att("Depth/Depth.depth", "coordinates"));
    EXPECT_EQ("depth_rate", file.att("Depth/Depth.rate", "standard_name"));
    EXPECT_EQ("time depth latitude longitude", file.att("Depth/Depth.rate", "coordinates"));
    EXPECT_EQ("CF-1.4", file.att("", "Conventions"));
}

// Arrays keep their shape; what a value lacks is missing; texts are texts.
TEST_F(NetCdfLogWriterTest, ArraysAndTexts) {
    DataAccess* const matrix = dive_->declareBlob("B.matrix", Units::METER, BLOB_FLOAT64LE, 2, 2);
    DataAccess* const cube = dive_->declareBlob("B.cube", Units::NONE, BLOB_UINT8, 1, 2, 2);
    DataAccess* const row = dive_->declareBlob("B.row", Units::NONE, BLOB_INT16LE, 3);
    DataAccess* const loose = dive_->declareBlob("B.loose", Units::NONE, BLOB_FLOAT32LE);
    DataAccess* const text = dive_->declareText("B.text");
    dive_->endDirectory();
    NameList names{"B.matrix", "B.cube", "B.row", "B.loose", "B.text"};
    NameList units{"kilometer", nullptr, nullptr, nullptr, nullptr};
    write(names,
          {dive_->blob<double>(matrix, 0, {1000, 2000, 3000, 4000}), dive_->blob<double>(matrix, 1, {5000}),
           dive_->blob<unsigned char>(cube, 0, {1, 2, 3, 255}), dive_->blob<short>(row, 0, {-1, 2}),
           dive_->blob<float>(loose, 0, {1, 2, 3}), dive_->text(text, 0, Str("one\0two", 7)), dive_->text(text, 1, "")},
          &units);
    EXPECT_EQ("", printed_);
    const NetCdfFile file(path_);
    EXPECT_EQ(std::vector<size_t>({2, 2, 2}), file.shape("B/B.matrix"));
    const std::vector<double> matrices = file.numbers("B/B.matrix");
    EXPECT_EQ(std::vector<double>({1, 2, 3, 4, 5}), std::vector<double>(matrices.begin(), matrices.begin() + 5));
    EXPECT_TRUE(std::isnan(matrices[5]) && std::isnan(matrices[7]));
    EXPECT_EQ(std::vector<size_t>({1, 1, 2, 2}), file.shape("B/B.cube"));
    EXPECT_EQ(std::vector<double>({1, 2, 3, 255}), file.numbers("B/B.cube"));
    EXPECT_EQ(std::vector<double>({-1, 2, NC_FILL_SHORT}), file.numbers("B/B.row"));
    EXPECT_EQ(std::vector<size_t>({1}), file.shape("B/B.loose"));
    EXPECT_TRUE(std::isnan(file.numbers("B/B.loose")[0]));
    EXPECT_EQ(std::vector<std::string>({"one", ""}), file.texts("B/B.text"));
}

// Names that collide: what came first keeps its place, and nothing else is disturbed.
TEST_F(NetCdfLogWriterTest, NamesThatCollide) {
    DataAccess* const first = dive_->declare("A.b/c");
    DataAccess* const second = dive_->declare("A.b:c");
    DataAccess* const root = dive_->declare("Taken");
    DataAccess* const inGroup = dive_->declare("Taken.x");
    DataAccess* const time = dive_->declare("C.x_time");
    DataAccess* const timed = dive_->declare("C.x");
    DataAccess* const id = dive_->declare("trajectory_id");
    DataAccess* const odd = dive_->declare("-\x01\xFF ");
    dive_->endDirectory();
    NameList names{"A.b/c", "A.b:c", "Taken", "Taken.x", "C.x_time", "C.x", "trajectory_id", "-\x01\xFF "};
    write(names,
          {dive_->data(first, 0, 1), dive_->data(second, 1, 2), dive_->data(root, 2, 3), dive_->data(inGroup, 3, 4),
           dive_->data(time, 4, 5), dive_->data(timed, 5, 6), dive_->data(id, 6, 7), dive_->data(odd, 7, 8)});
    EXPECT_EQ(
        "Failed to add variable: A.b:c (index 1).\n"
        "nc_def_grp failed to define a new NetCdf group for var Taken with error: Name is in use (code -42).\n"
        "NetCdfLogWriter failed to add group Taken while processing Taken.x (index 3).\n"
        "Failed to add variable: C.x (index 5).\n"
        "Failed to add variable: trajectory_id (index 6).\n",
        printed_);
    const NetCdfFile file(path_);
    EXPECT_EQ(std::vector<double>({1}), file.numbers("b/A.b.c"));
    EXPECT_EQ(std::vector<double>({3}), file.numbers("Taken"));
    EXPECT_EQ(std::vector<double>({5}), file.numbers("C/C.x_time"));
    EXPECT_FALSE(file.has("C/C.x"));
    EXPECT_EQ(std::vector<double>({8}), file.numbers("____"));
}

// Values whose class is not the variable's, as another access of the same name may bring them.
TEST_F(NetCdfLogWriterTest, ValuesOfAnotherKind) {
    DataAccess* const number = dive_->declare("C.number", Units::METER, SHORT2);
    DataAccess* const text = dive_->declareText("C.text");
    DataAccess* const blob = dive_->declareBlob("C.blob", Units::NONE, BLOB_UINT16LE, 2);
    dive_->endDirectory();
    NameList names{"C.number", "C.text", "C.blob"};
    const auto with = [&](DataAccess* access, double seconds, DataValue* value) {
        DataEntry* const entry = dive_->data(number, seconds, 1);
        return std::make_unique<DataEntry>(access, value, entry->getTimestamp(), false, true);
    };
    const auto textInNumber = with(number, 0, new StrValue("text"));
    const auto nanInNumber = with(number, 1, Units::METER.dataValue(NAN, DOUBLE8));
    const auto hugeInNumber = with(number, 2, Units::METER.dataValue(1e30, DOUBLE8));
    const auto noneInNumber = with(number, 3, nullptr);
    const auto numberInText = with(text, 0, Units::METER.dataValue(1.5, DOUBLE8));
    const auto numberInBlob = with(blob, 0, Units::METER.dataValue(1.5, DOUBLE8));
    write(names, {textInNumber.get(), nanInNumber.get(), hugeInNumber.get(), noneInNumber.get(), numberInText.get(),
                  numberInBlob.get(), dive_->data(number, 4, -7)});
    const NetCdfFile file(path_);
    const double fill = NC_FILL_SHORT;
    EXPECT_EQ(std::vector<double>({fill, fill, -1, fill, -7}), file.numbers("C/C.number"));
    EXPECT_EQ(std::vector<std::string>({""}), file.texts("C/C.text"));
    EXPECT_EQ(std::vector<double>({NC_FILL_USHORT, NC_FILL_USHORT}), file.numbers("C/C.blob"));
}

// Blocks of any size hold the same, value for value.
TEST_F(NetCdfLogWriterTest, BlocksDoNotShow) {
    DataAccess* const a = dive_->declare("A.a", Units::METER, FLOAT4);
    DataAccess* const text = dive_->declareText("A.text");
    DataAccess* const row = dive_->declareBlob("A.row", Units::NONE, BLOB_INT16LE, 3);
    dive_->endDirectory();
    NameList names{"A.a", "A.text", "A.row"};
    const std::string paths[] = {files_.path("single"), files_.path("blocks")};
    for (int i = 0; i < 2; ++i) {
        NetCdfLogWriter writer(paths[i].c_str(), true, names.count(), names.list(), nullptr, 0, nullptr);
        if (i == 0) writer.setBlockRecords(1);
        for (int sample = 0; sample < 600; ++sample) {
            writer.write(dive_->data(a, sample, sample * 0.5), nullptr);
            if (sample % 2 == 0) writer.write(dive_->text(text, sample, std::to_string(sample).c_str()), nullptr);
            if (sample % 3 == 0) writer.write(dive_->blob<short>(row, sample, {short(sample), 1}), nullptr);
        }
    }
    const NetCdfFile single(paths[0]);
    const NetCdfFile blocks(paths[1]);
    EXPECT_EQ(600u, blocks.numbers("A/A.a").size());
    for (const char* name : {"A/A.a", "A/A.a_time", "A/A.text_time", "A/A.row", "A/A.row_time"}) {
        EXPECT_EQ(single.numbers(name), blocks.numbers(name)) << name;
    }
    EXPECT_EQ(single.texts("A/A.text"), blocks.texts("A/A.text"));
}
