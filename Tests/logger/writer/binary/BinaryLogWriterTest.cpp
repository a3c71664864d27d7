#include "logger/writer/binary/BinaryLogWriter.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/MemoryStreams.h"
#include "support/SmallLog.h"

TEST(BinaryLogWriterTest, TheTraceShowsTextAndTypes) {
    SmallLog log;
    DataAccess* depth = log.declare("Depth.depth", Units::METER, FLOAT3);
    MemoryOutStream out;
    BinaryLogWriter writer(false, true);
    writer.setOutStream(out);
    DataEntry* agreeing = log.data(depth, 0.01, 1.5);
    DataEntry wrong(depth, new StrValue("abc"), SmallLog::At(0.01), false, true);
    DataEntry without(depth, nullptr, SmallLog::At(0.01), false, true);
    const std::pair<const LogEntry*, const char*> cases[] = {
        {log.cycle(0), ""}, {agreeing, "!000B!000B!"}, {&wrong, "!000B!0000!?!?!?|"}, {&without, "!000B!FFFF!?!?!?|"}};
    for (const auto& [entry, types] : cases) {
        MemoryOutStream plain;
        BinaryLogWriter reference(plain, false);
        out.clear();
        writer.resetTimeBase();
        EXPECT_EQ(reference.write(entry, nullptr), writer.write(entry, nullptr));
        EXPECT_EQ(std::string(entry->toString(nullptr).cStr()) + types + plain.bytes_ + "\n", out.bytes_);
    }
}
