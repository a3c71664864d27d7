#include "logger/writer/BinaryLogWriter.h"

#include <gtest/gtest.h>

#include "support/MemoryStreams.h"
#include "support/SmallLog.h"

class BinaryLogWriterTest : public testing::Test {
protected:
    SmallLog log_;
    DataAccess* depth_ = log_.declare("Depth.depth", Units::METER, FLOAT3);
    MemoryOutStream out_;
};

TEST_F(BinaryLogWriterTest, WritesEntriesInTheLogsFormAgainstTheLastCycle) {
    BinaryLogWriter writer(out_, false);
    EXPECT_EQ(0U, writer.writeHeader());
    unsigned int bytes = writer.write(log_.cycle(0), nullptr);
    bytes += writer.write(log_.bestData(depth_, 0.01, 1.5), nullptr);
    EXPECT_STREQ(
        "000000805C8BFC04"
        "0C0B710200C03F",
        out_.hex().cStr());
    EXPECT_EQ(out_.bytes_.size(), bytes);
}

// A series of files is written by one writer: each must be readable without the one before.
TEST_F(BinaryLogWriterTest, EachHeaderStartsANewTimeBase) {
    BinaryLogWriter writer(out_, true);
    EXPECT_EQ(8U, writer.writeHeader());
    EXPECT_EQ("*v 0008\n", out_.bytes_);
    writer.write(log_.data(depth_, 0.01, 1.5), nullptr);
    const std::string withoutCycle = out_.bytes_;
    writer.write(log_.cycle(0), nullptr);
    out_.clear();
    writer.writeHeader();
    writer.write(log_.data(depth_, 0.01, 1.5), nullptr);
    EXPECT_EQ(withoutCycle, out_.bytes_);
}

TEST_F(BinaryLogWriterTest, TheTraceShowsTextAndTypes) {
    BinaryLogWriter writer(false, true);
    writer.setOutStream(out_);
    DataEntry* agreeing = log_.data(depth_, 0.01, 1.5);
    DataEntry wrong(depth_, new StrValue("abc"), SmallLog::At(0.01), false, true);
    DataEntry without(depth_, nullptr, SmallLog::At(0.01), false, true);
    struct Case {
        const LogEntry* entry_;
        const char* types_;
    } const cases[] = {
        {log_.cycle(0), ""}, {agreeing, "!000B!000B!"}, {&wrong, "!000B!0000!?!?!?|"}, {&without, "!000B!FFFF!?!?!?|"}};
    for (const Case& c : cases) {
        MemoryOutStream plain;
        BinaryLogWriter reference(plain, false);
        out_.clear();
        writer.resetTimeBase();
        EXPECT_EQ(reference.write(c.entry_, nullptr), writer.write(c.entry_, nullptr));
        EXPECT_EQ(std::string(c.entry_->toString(nullptr).cStr()) + c.types_ + plain.bytes_ + "\n", out_.bytes_);
    }
}
