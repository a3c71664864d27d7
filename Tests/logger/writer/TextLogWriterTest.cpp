#include "logger/writer/TextLogWriter.h"

#include <gtest/gtest.h>

#include "support/MemoryStreams.h"
#include "support/SmallLog.h"

namespace {
// An entry that is not shown.
class SilentEntry : public LogEntry {
public:
    SilentEntry() : LogEntry(SYSLOG_LOG_ENTRY, SmallLog::At(0)) {}
    unsigned int write(Timestamp&, OutStream&) const override { return 0; }
    Str toString(const Unit*) const override { return Str(); }
};
}  // namespace

TEST(TextLogWriterTest, WritesALinePerEntryInTheUnitAskedFor) {
    SmallLog log;
    DataAccess* depth = log.declare("Depth.depth", Units::METER);
    MemoryOutStream out;
    TextLogWriter writer(out, false);
    unsigned int bytes = writer.writeHeader();
    bytes += writer.write(log.cycle(0), nullptr);
    bytes += writer.write(log.data(depth, 0.41, 1.5), &Units::CENTIMETER);
    bytes += writer.write(log.syslog(0.5, "hello"), nullptr);
    bytes += writer.writeFooter();
    EXPECT_EQ(
        "2012-06-01T12:30:00.000Z,1338553800.000000 START_CYCLE\n"
        "2012-06-01T12:30:00.410Z,1338553800.410000 Depth-->Depth.depth=150.000000 cm\n"
        "2012-06-01T12:30:00.500Z,1338553800.500 [Mission](INFO): hello\n",
        out.bytes_);
    EXPECT_EQ(out.bytes_.size(), bytes);
}

TEST(TextLogWriterTest, AnEntryWithoutTextWritesNothingButCountsOne) {
    const SilentEntry silent;
    MemoryOutStream out;
    EXPECT_EQ(1U, TextLogWriter(out, false).write(&silent, nullptr));
    EXPECT_EQ("", out.bytes_);
}

TEST(TextLogWriterTest, WithADirectoryItBeginsWithTheVersionInForce) {
    MemoryOutStream out;
    EXPECT_EQ(8U, TextLogWriter(out, true).writeHeader());
    EXPECT_EQ("*v 0008\n", out.bytes_);
}
