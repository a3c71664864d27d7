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
