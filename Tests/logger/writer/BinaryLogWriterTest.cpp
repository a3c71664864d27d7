#include "logger/writer/BinaryLogWriter.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/MemoryStreams.h"
#include "support/SmallLog.h"

class BinaryLogWriterTest : public testing::Test {
protected:
    SmallLog log_;
    DataAccess* depth_ = log_.declare("Depth.depth", Units::METER, FLOAT3);
    MemoryOutStream out_;
};

TEST_F(BinaryLogWriterTest, TheTraceShowsTextAndTypes) {
    BinaryLogWriter writer(false, true);
    writer.setOutStream(out_);
    DataEntry* agreeing = log_.data(depth_, 0.01, 1.5);
    DataEntry wrong(depth_, new StrValue("abc"), SmallLog::At(0.01), false, true);
    DataEntry without(depth_, nullptr, SmallLog::At(0.01), false, true);
    const std::pair<const LogEntry*, const char*> cases[] = {
        {log_.cycle(0), ""}, {agreeing, "!000B!000B!"}, {&wrong, "!000B!0000!?!?!?|"}, {&without, "!000B!FFFF!?!?!?|"}};
    for (const auto& [entry, types] : cases) {
        MemoryOutStream plain;
        BinaryLogWriter reference(plain, false);
        out_.clear();
        writer.resetTimeBase();
        EXPECT_EQ(reference.write(entry, nullptr), writer.write(entry, nullptr));
        EXPECT_EQ(std::string(entry->toString(nullptr).cStr()) + types + plain.bytes_ + "\n", out_.bytes_);
    }
}
