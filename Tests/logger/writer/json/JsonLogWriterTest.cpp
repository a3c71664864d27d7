#include "logger/writer/json/JsonLogWriter.h"

#include <gtest/gtest.h>

#include "support/MemoryStreams.h"
#include "support/NameList.h"
#include "support/SmallLog.h"

class JsonLogWriterTest : public testing::Test {
protected:
    // The document that the writer makes of the entries, and a line feed.
    std::string document(std::initializer_list<const char*> names, const std::vector<const LogEntry*>& entries,
                         std::initializer_list<const char*> units = {}, bool formatted = false) {
        log_.endDirectory();
        NameList nameList(names), unitList(units);
        JsonLogWriter writer(formatted, nameList.count(), nameList.list(), unitList.listOrNull(), 0, nullptr);
        return written(writer, entries);
    }
    std::string written(JsonLogWriter& writer, const std::vector<const LogEntry*>& entries) {
        MemoryOutStream out;
        writer.setOutStream(out);
        EXPECT_EQ(0U, writer.writeHeader());
        for (const LogEntry* entry : entries) EXPECT_EQ(0U, writer.write(entry, nullptr));
        EXPECT_EQ("", out.bytes_);
        EXPECT_EQ(0U, writer.writeFooter());
        EXPECT_EQ(0U, writer.writeFooter());
        return out.bytes_;
    }
    // The text of the array of values of a document of one variable.
    static std::string values(const std::string& document) {
        const size_t begin = document.find("\"value\":") + 8;
        return document.substr(begin, document.find(",\"units\"") - begin);
    }

    SmallLog log_;
};

TEST_F(JsonLogWriterTest, NamesNestAndSamplesStandBesideTheirTimes) {
    DataAccess* c = log_.declare("a.b.c", Units::METER, FLOAT4);
    DataAccess* d = log_.declare("a.b.d", Units::DEGREE);
    const std::vector<const LogEntry*> entries = {log_.cycle(0), log_.data(c, 0.0004, 1.5), log_.data(d, 0.0005, 90),
                                                  log_.syslog(1, "no sample"), log_.data(c, 2, -0.25)};
    EXPECT_EQ(
        "{\"a\":{\"b\":{"
        "\"c\":{\"value\":[1.5,-0.25],\"units\":\"m\",\"time\":[1338553800000,1338553802000]},"
        "\"d\":{\"value\":[90],\"units\":\"arcdeg\",\"time\":[1338553800001]}}}}\n",
        document({"a.b.c", "a.b.d"}, entries));
    EXPECT_EQ(
        "{\n\t\"a\":\t{\n\t\t\"b\":\t{\n\t\t\t\"c\":\t{\n"
        "\t\t\t\t\"value\":\t[150, -25],\n\t\t\t\t\"units\":\t\"cm\",\n"
        "\t\t\t\t\"time\":\t[1338553800000, 1338553802000]\n"
        "\t\t\t}\n\t\t}\n\t}\n}\n",
        document({"a.b.c"}, entries, {"centimeter"}, true));
}

TEST_F(JsonLogWriterTest, NumbersHaveTheDigitsThatTheyNeed) {
    const std::pair<double, std::string> cases[] = {
        {-0.0, "-0"},       {0.1, "0.1"},  {static_cast<double>(0.1F), "0.10000000149011612"},
        {1e15, "1e+15"},    {NAN, "null"}, {5e-324, "4.94065645841247e-324"},
        {-INFINITY, "null"}};
    DataAccess* x = log_.declare("a.x");
    for (const auto& [number, text] : cases) {
        EXPECT_EQ("[" + text + "]", values(document({"a.x"}, {log_.data(x, 0, number)})));
    }
    EXPECT_EQ("[3]", values(document({"a.x", "a.x"}, {log_.data(x, 0, 3)})));  // once, though listed twice
    EXPECT_EQ("[\"no number\"]", values(document({"a.x"}, {log_.text(x, 0, "no number")})));
    DataAccess* depth = log_.declare("a.depth", Units::METER);
    EXPECT_EQ("[null]", values(document({"a.depth"}, {log_.data(depth, 0, 1)}, {"degree"})));
}

TEST_F(JsonLogWriterTest, StringsStayReadableWhateverTheirBytes) {
    const std::pair<Str, std::string> cases[] = {{"", "\"\""},
                                                 {"say \"hi\" \\ [", "\"say \\\"hi\\\" \\\\ [\""},
                                                 {"\n\t\x01", "\"\\n\\t\\u0001\""},
                                                 {"\xC3\xA9\xFF\xC3", "\"\xC3\xA9\xEF\xBF\xBD\xEF\xBF\xBD\""},
                                                 {Str("z\0z", 3), "\"z\xEF\xBF\xBDz\""}};
    DataAccess* text = log_.declareText("a.text");
    for (const auto& [bytes, json] : cases) {
        const LogEntry* entry = log_.text(text, 0, bytes);
        EXPECT_EQ("[" + json + "," + json + "]", values(document({"a.text"}, {entry, entry})));
    }
}

TEST_F(JsonLogWriterTest, BlobsAreNestedByTheirDimensions) {
    const struct {
        const char* name_;
        unsigned short dimensions_[3];
        std::vector<short> elements_;
        std::string json_;
    } cases[] = {{"a.flat", {}, {1, 2, 3}, "[1,2,3]"},
                 {"a.empty", {}, {}, "[]"},
                 {"a.short", {3}, {1}, "[1,null,null]"},
                 {"a.long", {1}, {1, 2}, "[1]"},
                 {"a.matrix", {2, 3}, {1, 2, 3, 4, 5, 6}, "[[1,2,3],[4,5,6]]"},
                 {"a.cube", {2, 1, 2}, {1, 2, 3, 4}, "[[[1,2]],[[3,4]]]"},
                 {"a.rows", {0, 2}, {1, 2, 3}, "[[1,2],[3,null]]"},
                 {"a.planes", {0, 2, 1}, {1, 2, 3, 4}, "[[[1],[2]],[[3],[4]]]"}};
    for (const auto& c : cases) {
        DataAccess* blob =
            log_.declareBlob(c.name_, Units::NONE, BLOB_INT16LE, c.dimensions_[0], c.dimensions_[1], c.dimensions_[2]);
        const LogEntry* entry = log_.blob(blob, 0, c.elements_);
        EXPECT_EQ("[" + c.json_ + "," + c.json_ + "]", values(document({c.name_}, {entry, entry})));
    }
    DataAccess* speeds = log_.declareBlob("a.speeds", Units::METER_PER_SECOND, BLOB_FLOAT32LE, 2);
    const LogEntry* entry = log_.blob<float>(speeds, 0, {1.5F, NAN});
    EXPECT_EQ("[[150,null]]", values(document({"a.speeds"}, {entry}, {"centimeter_per_second"})));
}

// Where the samples of each name stand: E in the text expected is its empty leaf.
TEST_F(JsonLogWriterTest, EveryNameHasAPlaceOfItsOwn) {
    const struct {
        std::initializer_list<const char*> names_;
        std::string json_;
    } cases[] = {{{"a:b/c"}, "{'a':{'b':{'c':E}}}"},
                 {{".a", "b.", "c..d"}, "{'':{'a':E},'b':{'':E},'c':{'':{'d':E}}}"},
                 {{"a.b.c", "a.b"}, "{'a':{'b':{@,'c':E}}}"},
                 {{"a.b", "a.value", "a.value.b"}, "{'a':{'b':E,'value':{@,'b':E}}}"},
                 {{"a.value", "a"}, "{'a':{@,'value_':E}}"},
                 {{"a", "a.time", "a.time_"}, "{'a':{@,'time_':E,'time__':E}}"},
                 {{"a", "a.units.x"}, "{'a':{@,'units_':{'x':E}}}"},
                 {{"a.b", "a:b", "a.b"}, "{'a':{'b':E}}"},
                 {{"a.b", "a.B", "A.b"}, "{'a':{'b':E,'B':E},'A':{'b':E}}"},
                 {{"a.\xFF", "a.\xFE"}, "{'a':{'\xEF\xBF\xBD':E,'\xEF\xBF\xBD_':E}}"}};
    for (const auto& [names, json] : cases) {
        SmallLog log;
        for (const char* name : names) log.declare(name);
        log.endDirectory();
        const std::string members = "\"value\":[],\"units\":\"n/a\",\"time\":[]";
        std::string expected;
        for (const char c : json) {
            expected += c == 'E' ? "{" + members + "}" : c == '@' ? members : std::string(1, c == '\'' ? '"' : c);
        }
        EXPECT_EQ(expected + "\n", document(names, {log.cycle(0)}));
    }
}

// A unit asked for gives even a name that the log does not know its place; one whose type the log never tells has none.
TEST_F(JsonLogWriterTest, NamesThatTheLogDoesNotKnow) {
    log_.declareUntyped("a.open");
    const LogEntry* entry = log_.data(log_.declare("a.x"), 0, 1);
    const std::string known = "\"x\":{\"value\":[1],\"units\":\"n/a\",\"time\":[1338553800000]}";
    EXPECT_EQ("{\"a\":{" + known + "}}\n", document({"a.x", "a.lost"}, {entry}));
    EXPECT_EQ("{\"a\":{" + known + ",\"lost\":{\"value\":[],\"units\":\"m\",\"time\":[]}}}\n",
              document({"a.x", "a.lost", "a.open", "a.lost"}, {entry}, {nullptr, nullptr, "meter", "meter"}));
}

TEST_F(JsonLogWriterTest, TheNextInputAddsToTheSamePlaces) {
    NameList names({"a.x", "a.y"});
    JsonLogWriter writer(false, names.count(), names.list(), nullptr, 0, nullptr);
    log_.endDirectory();
    writer.write(log_.data(log_.declare("a.x"), 0, 1), nullptr);
    writer.resetInputs();
    SmallLog next(Log::Current());
    DataAccess* y = next.declare("a.y");
    DataAccess* x = next.declare("a.x");
    next.endDirectory();
    EXPECT_EQ(
        "{\"a\":{\"x\":{\"value\":[1,3],\"units\":\"n/a\",\"time\":[1338553800000,1338553802000]},"
        "\"y\":{\"value\":[2],\"units\":\"n/a\",\"time\":[1338553801000]}}}\n",
        written(writer, {next.data(y, 1, 2), next.data(x, 2, 3)}));
}
