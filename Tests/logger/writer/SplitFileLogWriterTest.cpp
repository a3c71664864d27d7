#include "logger/writer/SplitFileLogWriter.h"

#include <future>

#include "OutputFixture.h"

class SplitFileLogWriterTest : public OutputFixture {
protected:
    const Str base_ = dir_.path("run").c_str();
};

TEST_F(SplitFileLogWriterTest, AFileEndsWithTheEntryThatTakesItPastItsSize) {
    dir_.write("run0007", "replaced");
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

class ProbedWriter : public SplitFileLogWriter {
public:
    using SplitFileLogWriter::SplitFileLogWriter;
    bool isFree() {  // for another thread
        const auto take = [this] { return writeMutex_.tryLock() && writeMutex_.unlock() == 0; };
        return std::async(std::launch::async, take).get();
    }
};

TEST_F(SplitFileLogWriterTest, SplitsWhenAsked) {
    ProbedWriter writer(base_, inner(), nullptr, 1);
    writer.split(true, 5);
    writer.write(log_.cycle(0), nullptr);
    writer.split(false, -1);
    EXPECT_FALSE(writer.valid());
    EXPECT_EQ("<.>", dir_.read("run0005"));
    EXPECT_FALSE(dir_.has("run0006"));
    writer.resetFileBase(dir_.path("next").c_str(), 3);
    EXPECT_STREQ(dir_.path("next0003").c_str(), writer.getFilename().cStr());
    EXPECT_TRUE(writer.isFree());
}

// A file that cannot be encoded is kept as it is.
class FailingEncoder : public FileEncoder {
public:
    explicit FailingEncoder(int* attempts = nullptr) : attempts_(attempts) {}
    bool encode(const char*, const char*, const char*) override {
        if (attempts_ != nullptr) ++*attempts_;
        return false;
    }

private:
    int* const attempts_;  // borrowed
};

TEST_F(SplitFileLogWriterTest, FilesAreEncodedQuietly) {
    testing::internal::CaptureStdout();
    { SplitFileLogWriter(base_, inner(), new FailingEncoder, 1).write(log_.cycle(0), nullptr); }
    EXPECT_EQ("", testing::internal::GetCapturedStdout());
}

TEST_F(SplitFileLogWriterTest, AnIncompleteFileIsNotEncoded) {
    int attempts = 0;
    SplitFileLogWriter writer(base_, inner(), new FailingEncoder(&attempts), 1);
    writer.write(log_.cycle(0), nullptr);
    writer.countAsIncomplete();
    writer.split(true, -1);
    EXPECT_EQ(0, attempts);
    writer.split(false, -1);
    EXPECT_EQ(1, attempts);
}

// No number helps in a folder that does not exist as one; the search for a name ends all the same.
TEST_F(SplitFileLogWriterTest, AFolderThatCannotBeSearchedEndsTheSearch) {
    dir_.write("file", "");
    SplitFileLogWriter writer(dir_.path("file/run").c_str(), inner(), nullptr, 1);
    EXPECT_EQ(0U, writer.write(log_.cycle(0), nullptr));
    EXPECT_EQ(1U, messages_.take().size());
}
