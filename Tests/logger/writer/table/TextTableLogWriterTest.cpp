#include "logger/writer/table/TextTableLogWriter.h"

#include <gtest/gtest.h>

#include <tuple>

#include "support/MemoryStreams.h"
#include "support/NameList.h"
#include "support/SmallLog.h"

TEST(TextTableLogWriterTest, QuotesNumbersForTheirDigitsAndTheirUnits) {
    static const Unit SPLIT("split_second", "s;2", Units::SECOND, 0.5, 0);
    SmallLog log;
    DataAccess* number = log.declare("A.number", SPLIT);
    NameList names({"A.number"});
    const std::pair<const char*, const char*> cases[] = {
        {",", ",1.500000 s;2\n"}, {";", ";\"1.500000 s;2\"\n"}, {"5", "5\"1.500000 s;2\"\n"}};
    for (const auto& [separator, cell] : cases) {
        MemoryOutStream out;
        TextTableLogWriter table(separator, 1, names.list(), nullptr, false, false);
        table.setOutStream(out);
        table.write(log.cycle(0), nullptr);
        table.write(log.data(number, 0, 1.5), nullptr);
        table.write(log.cycle(1), nullptr);
        EXPECT_EQ("2012-06-01T12:30:00.000Z" + (separator + ("1338553800.000" + std::string(cell))), out.bytes_);
    }
}

TEST(TextTableLogWriterTest, QuotesWhatWouldBreakTheTable) {
    SmallLog log;
    DataAccess* text = log.declareText("A.\"text\",");
    NameList names({"A.\"text\","});
    const std::tuple<std::string, const char*, const char*> cases[] = {
        {",", "plain; 'text'\t", "plain; 'text'\t"},
        {",", "a\nb", "\"a\nb\""},
        {",", "a\rb", "\"a\rb\""},
        {";", "a,b", "a,b"},
        {"::", "a:b", "a:b"},
        {"::", "a::b", "\"a::b\""},
        {"\xA7", "a\xA7", "\"a\xA7\""},
        {",", "a text that is longer, by far, than a number", "\"a text that is longer, by far, than a number\""}};
    for (const auto& [separator, content, cell] : cases) {
        MemoryOutStream out;
        TextTableLogWriter table(separator.c_str(), 1, names.list(), nullptr, false, false);
        table.setOutStream(out);
        table.writeHeader();
        table.write(log.cycle(0), nullptr);
        table.write(log.text(text, 0, content), nullptr);
        table.write(log.cycle(1), nullptr);
        EXPECT_EQ("Timestamp" + separator + "EpochSeconds" + separator + "\"A.\"\"text\"\",\"\n" +
                      "2012-06-01T12:30:00.000Z" + separator + "1338553800.000" + separator + cell + "\n",
                  out.bytes_);
    }
}

TEST(TextTableLogWriterTest, WithoutACycleTheOnlyRowHasNoTime) {
    SmallLog log;
    DataAccess* const depth = log.declare("Depth.depth", Units::METER);
    NameList names({"Depth.depth"});
    MemoryOutStream out;
    TextTableLogWriter table(",", 1, names.list(), nullptr, true, false);
    table.setOutStream(out);
    table.write(log.data(depth, 0, 1.5), nullptr);
    table.writeFooter();
    EXPECT_EQ("nan,nan,1.500000\n", out.bytes_);
}
