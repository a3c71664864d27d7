#include "logger/writer/TextTableLogWriter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/MemoryStreams.h"
#include "support/NameList.h"
#include "support/SmallLog.h"

namespace {

class TextTableLogWriterTest : public ::testing::Test {
protected:
    std::string take() { return std::exchange(out_.bytes_, ""); }

    SmallLog log_;
    MemoryOutStream out_;
};

}  // namespace

TEST_F(TextTableLogWriterTest, RowsRepeatTheLastValueInTheColumnsUnit) {
    DataAccess* depth = log_.declare("Depth.depth", Units::METER);
    NameList names({"Depth.depth", "Depth.depth.absent"}), units({"centimeter", nullptr});
    TextTableLogWriter table(",", names.count(), names.list(), units.list(), false, false);
    EXPECT_EQ(0u, table.writeHeader());  // no stream yet
    table.setOutStream(out_);
    table.writeHeader();
    EXPECT_EQ("Timestamp,EpochSeconds,Depth.depth,Depth.depth.absent\n", take());
    table.write(log_.cycle(0), nullptr);
    table.write(log_.cycle(1), nullptr);
    EXPECT_EQ("2012-06-01T12:30:00.000Z,1338553800.000,nan,nan\n", take());
    table.write(log_.data(depth, 1.5, 1.25), nullptr);
    table.write(log_.cycle(2.25), nullptr);
    EXPECT_EQ("2012-06-01T12:30:01.000Z,1338553801.000,125.000000 cm,nan\n", take());
    EXPECT_EQ(58u, table.writeFooter());
    EXPECT_EQ("2012-06-01T12:30:02.250Z,1338553802.250,125.000000 cm,nan\n", take());
    EXPECT_EQ(0u, table.writeFooter());
}

TEST_F(TextTableLogWriterTest, TheLastInterpolatedRowIsRepeatedAtTheEnd) {
    DataAccess* depth = log_.declare("Depth.depth", Units::METER);
    DataAccess* speed = log_.declareReader("Nav", log_.declare("Nav.speed", Units::METER_PER_SECOND));
    NameList names({"Depth.depth", "Nav.speed"});
    TextTableLogWriter table(";", names.count(), names.list(), nullptr, true, true);
    table.setOutStream(out_);
    table.write(log_.data(speed, 0, 1), nullptr);
    table.write(log_.data(depth, 0, 1), nullptr);
    table.write(log_.data(depth, 1, 2), nullptr);
    table.write(log_.data(speed, 2, 3), nullptr);  // a reader's gap shows as nan, though the cell before held a number
    table.writeFooter();
    EXPECT_EQ(
        "2012-06-01T12:30:00.000Z;1338553800.000;1.000000;1.000000\n"
        "2012-06-01T12:30:01.000Z;1338553801.000;2.000000;nan\n"
        "2012-06-01T12:30:02.000Z;1338553802.000;2.000000;3.000000\n"
        "2012-06-01T12:30:02.000Z;1338553802.000;2.000000;3.000000\n",
        take());
}

TEST_F(TextTableLogWriterTest, QuotesWhatWouldBreakTheTable) {
    DataAccess* text = log_.declareText("A.text");
    NameList names({"A.text", "a,\"b\""});
    const struct {
        const char* separator_;
        const char* text_;
        const char* cell_;
    } cases[] = {
        {",", "plain; 'text'\t", "plain; 'text'\t"},
        {",", "a,b", "\"a,b\""},
        {",", "say \"a\"", "\"say \"\"a\"\"\""},
        {",", "a\nb", "\"a\nb\""},
        {",", "a\rb", "\"a\rb\""},
        {",", "", ""},
        {";", "a,b", "a,b"},
        {"::", "a:b", "a:b"},
        {"::", "a::b", "\"a::b\""},
        {"\xA7", "a\xA7", "\"a\xA7\""},
    };
    for (const auto& c : cases) {
        TextTableLogWriter table(c.separator_, 1, names.list(), nullptr, false, false);
        table.setOutStream(out_);
        table.write(log_.cycle(0), nullptr);
        table.write(log_.text(text, 0, c.text_), nullptr);
        table.write(log_.cycle(1), nullptr);
        const std::string separator = c.separator_;
        EXPECT_EQ("2012-06-01T12:30:00.000Z" + separator + "1338553800.000" + separator + c.cell_ + "\n", take());
    }
    TextTableLogWriter table(",", names.count(), names.list(), nullptr, false, false);
    table.setOutStream(out_);
    table.writeHeader();
    EXPECT_EQ("Timestamp,EpochSeconds,A.text,\"a,\"\"b\"\"\"\n", take());
}
