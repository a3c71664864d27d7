#include "logger/writer/SplitFileLogWriter.h"

#include "OutputFixture.h"
#include "logger/writer/kml/KmlLogWriter.h"
#include "logger/writer/table/TextTableLogWriter.h"

class SplitFileLogWriterTest : public OutputFixture {
protected:
    const Str base_ = dir_.path("run").c_str();
};

TEST_F(SplitFileLogWriterTest, AFileEndsWithTheEntryThatTakesItPastItsSize) {
    {
        SplitFileLogWriter writer(base_, 8, inner(4), nullptr, 7);
        EXPECT_FALSE(writer.valid());
        for (int i = 0; i < 4; ++i) EXPECT_EQ(4U, writer.write(log_.cycle(i), nullptr));
    }
    EXPECT_EQ("<............>", dir_.read("run0007"));
    EXPECT_EQ("<....>", dir_.read("run0008"));
}

TEST_F(SplitFileLogWriterTest, AFileSpansTheTimeFromItsFirstEntryInclusive) {
    {
        SplitFileLogWriter writer(base_, Timespan(60, 0), inner(), nullptr, 1);
        for (double t : {10.0, 70.0, 70.5, 130.0, 130.5, 131.0}) writer.write(log_.cycle(t), nullptr);
    }
    EXPECT_EQ("<..>", dir_.read("run0001"));
    EXPECT_EQ("<...>", dir_.read("run0002"));  // from 70.5 on: 130.5 is its last instant
    EXPECT_EQ("<.>", dir_.read("run0003"));
}

TEST_F(SplitFileLogWriterTest, SplitsWhenAsked) {
    SplitFileLogWriter writer(base_, inner(), nullptr, 1);
    writer.split(true, 5);
    writer.write(log_.cycle(0), nullptr);
    writer.split(false, -1);
    EXPECT_FALSE(writer.valid());
    EXPECT_EQ("<.>", dir_.read("run0005"));
    EXPECT_FALSE(dir_.has("run0006"));
    writer.resetFileBase(dir_.path("next").c_str(), 3);
    EXPECT_STREQ(dir_.path("next0003").c_str(), writer.getFilename().cStr());
}

TEST_F(SplitFileLogWriterTest, EachFileIsWhole) {
    NameList names{"Nav.latitude"};
    DataAccess* const latitude = log_.declareServing("latitude", "Nav.latitude", Units::DEGREE);
    DataAccess* const longitude = log_.declareServing("longitude", "Nav.longitude", Units::DEGREE);
    {
        SplitFileLogWriter tables(base_, 1, new TextTableLogWriter(",", 1, names.list(), nullptr, true, false), nullptr,
                                  1);
        SplitFileLogWriter tracks(dir_.path("track").c_str(), 1, new KmlLogWriter("", false, false), nullptr, 1);
        for (LogWriter* writer : {static_cast<LogWriter*>(&tables), static_cast<LogWriter*>(&tracks)}) {
            for (int i = 0; i < 6; ++i) {
                writer->write(log_.bestData(latitude, i, 36 + i), nullptr);
                writer->write(log_.bestData(longitude, i, -122), nullptr);
                writer->write(log_.cycle(i), nullptr);
            }
        }
    }
    for (const std::string number : {"0001", "0002"}) {
        const std::string table = dir_.read("run" + number);
        EXPECT_EQ(0u, table.find("Timestamp,EpochSeconds,Nav.latitude\n")) << number;
        EXPECT_LT(1, std::count(table.begin(), table.end(), '\n')) << number;
        const std::string track = dir_.read("track" + number);
        EXPECT_EQ(0u, track.find("<?xml")) << number;
        EXPECT_NE(std::string::npos, track.find("</kml>")) << number;
    }
}

// A file that cannot be encoded is kept as it is.
class FailingEncoder : public FileEncoder {
public:
    bool encode(const char*, const char*, const char*) override { return false; }
};

TEST_F(SplitFileLogWriterTest, FilesAreEncodedQuietly) {
    testing::internal::CaptureStdout();
    { SplitFileLogWriter(base_, inner(), new FailingEncoder, 1).write(log_.cycle(0), nullptr); }
    EXPECT_EQ("", testing::internal::GetCapturedStdout());
}

// No number helps in a folder that does not exist as one; the search for a name ends all the same.
TEST_F(SplitFileLogWriterTest, AFolderThatCannotBeSearchedEndsTheSearch) {
    dir_.write("file", "");
    SplitFileLogWriter writer(dir_.path("file/run").c_str(), inner(), nullptr, 1);
    EXPECT_EQ(0U, writer.write(log_.cycle(0), nullptr));
    EXPECT_EQ(1U, messages_.take().size());
}
