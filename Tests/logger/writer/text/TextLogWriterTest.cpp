#include "logger/writer/text/TextLogWriter.h"

#include <gtest/gtest.h>

#include "support/MemoryStreams.h"
#include "support/SmallLog.h"

TEST(TextLogWriterTest, WritesTheVersionInForceAndALinePerEntryInTheUnitAskedFor) {
    SmallLog log;
    DataAccess* depth = log.declare("Depth.depth", Units::METER);
    MemoryOutStream out;
    TextLogWriter writer(out, true);
    unsigned int bytes = writer.writeHeader();
    bytes += writer.write(log.data(depth, 0.41, 1.5), &Units::CENTIMETER);
    EXPECT_EQ(
        "*v 0008\n"
        "2012-06-01T12:30:00.410Z,1338553800.410000 Depth-->Depth.depth=150.000000 cm\n",
        out.bytes_);
    EXPECT_EQ(out.bytes_.size(), bytes);
    EXPECT_EQ(1U, writer.write(log.syslog(0.5, "no severity", Syslog::NONE), nullptr));  // an entry without text
    EXPECT_EQ(bytes, out.bytes_.size());
}
