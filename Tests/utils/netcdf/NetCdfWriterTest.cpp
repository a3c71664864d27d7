#include "utils/netcdf/NetCdfWriter.h"

#include <sys/stat.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <memory>
#include <tuple>

#include "support/NetCdfFile.h"
#include "support/SlateFixture.h"
#include "support/TempDir.h"
#include "units/Units.h"

namespace {

const double INF = std::numeric_limits<double>::infinity();

class NetCdfWriterTest : public SlateFixture {
protected:
    std::unique_ptr<NetCdfWriter> open(bool version4, unsigned int blockRecords = 256) {
        std::unique_ptr<NetCdfWriter> writer(
            NetCdfWriter::NewNetCdfWriter(path_.c_str(), version4, version4 ? nullptr : "Trip"));
        if (writer != nullptr) writer->setBlockRecords(blockRecords);
        return writer;
    }

    const TempDir files_;
    const std::string path_ = files_.path("file");
};

// A value in a holder, written as one record of its own.
bool WriteNumber(NetCdfWriter& writer, NetCdf::NetCdfVar* var, double number) {
    const std::unique_ptr<DataValue> value(Units::NONE.dataValue(number, DOUBLE8));
    var->setHolder(value.get());
    const bool isWritten = writer.writeVarRecord(var, nullptr);
    var->setHolder(nullptr);
    return isWritten;
}

}  // namespace

TEST_F(NetCdfWriterTest, EveryDefinitionIsMadeOnce) {
    const std::unique_ptr<NetCdfWriter> writer = open(true);
    NetCdf::NetCdfDim* const dim = writer->addDim("n", 3);
    EXPECT_EQ(dim, writer->addDim("n", 5));
    NetCdf::NetCdfVar* const var = writer->addVar("v", NetCdf::NC_INT_TYPE, writer->addDim("t", 0), dim);
    EXPECT_EQ(var, writer->addVar("v", NetCdf::NC_DOUBLE_TYPE, dim));
    EXPECT_EQ(writer->addVarAtt(*var, "units", "m"), writer->addVarAtt(*var, "units", "km"));
    EXPECT_EQ(nullptr, writer->findAtt("units"));
    NetCdfGroup* const group = writer->addGroup("g");
    EXPECT_EQ(group, writer->addGroup("g"));
    EXPECT_EQ(nullptr, group->findVar("v"));
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(writer->initialize());
}

TEST_F(NetCdfWriterTest, AttributesOfEveryKindCanGrowAfterTheRecords) {
    for (bool version4 : {false, true}) {
        const std::unique_ptr<NetCdfWriter> writer = open(version4);
        NetCdf::NetCdfAtt* const text = writer->addGlobalAtt("text", "");
        NetCdf::NetCdfAtt* const small = writer->addGlobalAtt("short", short(0));
        writer->addGlobalAtt("byte", static_cast<unsigned char>(7));
        writer->addGlobalAtt("float", 1.5f);
        ASSERT_TRUE(writer->initialize());
        EXPECT_TRUE(writer->writeRecord(Timestamp(1, 0)));
        ASSERT_TRUE(writer->beginAttChanges());
        EXPECT_TRUE(writer->setAttValue(*text, Str(nullptr, 1000)));
        EXPECT_TRUE(writer->setAttValue(*small, 70000));
        ASSERT_TRUE(writer->endAttChanges());
        EXPECT_TRUE(writer->finalize());
        const NetCdfFile file(path_);
        EXPECT_EQ(1000u, file.att("", "text").size());
        EXPECT_EQ("32767 7 1.5", file.att("", "short") + " " + file.att("", "byte") + " " + file.att("", "float"));
        EXPECT_EQ(version4 ? std::vector<double>() : std::vector<double>({1}), file.numbers("Time"));
    }
}

TEST_F(NetCdfWriterTest, NumbersAreFittedToTheirType) {
    // The type, a number, and what the file holds of it.
    const std::tuple<NetCdf::NetCdfType, double, double> cases[] = {
        {NetCdf::NC_BYTE_TYPE, 200.9, -56},
        {NetCdf::NC_BYTE_TYPE, NAN, NC_FILL_BYTE},
        {NetCdf::NC_UBYTE_TYPE, 257, 1},
        {NetCdf::NC_SHORT_TYPE, 40000, -25536},
        {NetCdf::NC_USHORT_TYPE, -25536, 40000},
        {NetCdf::NC_INT_TYPE, 1e20, 2147483647},
        {NetCdf::NC_INT_TYPE, -INF, -2147483648.0},
        {NetCdf::NC_UINT_TYPE, -1, 0},
        {NetCdf::NC_INT64_TYPE, -1e30, -9223372036854775808.0},
        {NetCdf::NC_UINT64_TYPE, NAN, double(NC_FILL_UINT64)},
        {NetCdf::NC_FLOAT_TYPE, 1e300, INF},
        {NetCdf::NC_FLOAT_TYPE, 0.1, double(0.1f)},
    };
    const std::unique_ptr<NetCdfWriter> writer = open(true);
    const NetCdf::NetCdfDim* const time = writer->addDim("t", 0);
    std::vector<NetCdf::NetCdfVar*> vars;
    for (const auto& [type, value, read] : cases) vars.push_back(writer->addVar(Str(vars.size(), 10), type, time));
    ASSERT_TRUE(writer->initialize());
    for (size_t i = 0; i < vars.size(); ++i) EXPECT_TRUE(WriteNumber(*writer, vars[i], std::get<1>(cases[i])));
    EXPECT_TRUE(writer->finalize());
    const NetCdfFile file(path_);
    int index = 0;
    for (const auto& [type, value, read] : cases) {
        EXPECT_EQ(std::vector<double>{read}, file.numbers(std::to_string(index++))) << type << " " << value;
    }
}

// Everything that can go wrong.

TEST_F(NetCdfWriterTest, ABadNameEndsDefinitionsUntilTheyAreResumed) {
    const std::unique_ptr<NetCdfWriter> writer = open(true);
    EXPECT_EQ(nullptr, writer->addDim("a/b", 1));
    EXPECT_STREQ("NetCDF: Name contains illegal characters", writer->status());
    EXPECT_FALSE(writer->isOk());
    EXPECT_EQ(nullptr, writer->addDim("good", 1));
    EXPECT_TRUE(writer->recover());
    EXPECT_NE(nullptr, writer->addDim("good", 1));
    EXPECT_EQ(nullptr, writer->addVar(Str(nullptr, 300), NetCdf::NC_INT_TYPE, nullptr));
}

TEST_F(NetCdfWriterTest, GroupsThatCannotBeDefined) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(nullptr, open(false)->addGroup("g"));
    const std::unique_ptr<NetCdfWriter> version4 = open(true);
    version4->addVar("taken", NetCdf::NC_INT_TYPE, version4->addDim("t", 0));
    EXPECT_EQ(nullptr, version4->addGroup("taken"));
    EXPECT_TRUE(version4->isOk());
    EXPECT_EQ(
        "nc_def_grp failed to define a new NetCdf group for var g with error: "
        "Attempting a netCDF-4 operation on a netCDF-3 file (code -111).\n"
        "nc_def_grp failed to define a new NetCdf group for var taken with error: Name is in use (code -42).\n",
        testing::internal::GetCapturedStdout());
}

// The library would remove it when it cannot write there.
TEST_F(NetCdfWriterTest, ADeviceStays) {
    ASSERT_EQ(0, mkfifo(path_.c_str(), 0600));
    for (const bool version4 : {false, true}) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(nullptr, open(version4));
        EXPECT_EQ("NetCdf error: Operation not supported\n", testing::internal::GetCapturedStdout());
        EXPECT_EQ(Lines{"ERROR Failed to open " + path_ + ": Operation not supported"}, log_.take());
    }
    EXPECT_TRUE(std::filesystem::is_fifo(path_));
}

// Another output may have taken its place.
TEST_F(NetCdfWriterTest, OnlyItsOwnFileIsDiscarded) {
    for (const bool version4 : {false, true}) {
        open(version4)->discard();
        EXPECT_FALSE(std::filesystem::exists(path_));
        const std::unique_ptr<NetCdfWriter> writer = open(version4);
        const std::unique_ptr<NetCdfWriter> other = open(false);
        writer->discard();
        EXPECT_TRUE(std::filesystem::exists(path_));
    }
}

TEST_F(NetCdfWriterTest, RecordsOutsideDataModeStopTheFile) {
    const std::unique_ptr<NetCdfWriter> writer = open(false, 1);
    writer->addVar("v", NetCdf::NC_FLOAT_TYPE, nullptr);
    testing::internal::CaptureStdout();
    for (int i = 0; i < 300 && writer->isOk(); ++i) writer->writeRecord(Timestamp(i, 0));
    EXPECT_FALSE(writer->writeRecord(Timestamp(1000, 0)));
    EXPECT_EQ(
        "writeRecord #0, var#1 (name=\"Time\", value=null), write 0 error: "
        "NetCDF: Operation not allowed in define mode\n",
        testing::internal::GetCapturedStdout());
    EXPECT_EQ(Lines{"ERROR Failed to write " + path_ + ": NetCDF: Operation not allowed in define mode"}, log_.take());
    EXPECT_FALSE(writer->initialize() || writer->finalize());
}
