#include "logger/writer/json/JsonLogWriter.h"

#include <csignal>

#include "logger/writer/FileLogWriter.h"
#include "logger/writer/OutputFixture.h"
#include "support/FileSizeLimit.h"
#include "support/MemoryStreams.h"

class JsonLogWriterTest : public OutputFixture {
protected:
    // The document that the writer makes of the entries, and a line feed.
    std::string document(std::initializer_list<const char*> names, const std::vector<const LogEntry*>& entries,
                         std::initializer_list<const char*> units = {}, bool formatted = false) {
        log_.endDirectory();
        NameList nameList(names), unitList(units);
        JsonLogWriter writer(formatted, nameList.count(), nameList.list(), unitList.listOrNull(), 0, nullptr);
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
                 {"a.half", {3, 2}, {1}, "[[1,null],[null,null],[null,null]]"},
                 {"a.none", {2, 1, 2}, {}, "[[[null,null]],[[null,null]]]"},
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

// What comes again is kept once, and written as often as it comes.
TEST_F(JsonLogWriterTest, ArraysThatAlternateInAUniversalStayApart) {
    const std::vector<short> numbers = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const std::string sixteen = "[1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16]";
    DataAccess* accesses[2];
    for (int i = 0; i < 2; ++i) {
        const char* const name = i == 0 ? "A.x" : "B.x";
        log_.declareBlob(name, Units::NONE, BLOB_INT16LE, 16);
        accesses[i] = log_.declareServing("depth", name, Units::NONE, STRVALUE);
    }
    const std::string other = "[0" + sixteen.substr(2);
    const std::pair<int, std::string> samples[] = {{0, sixteen}, {1, other}, {0, sixteen}, {0, sixteen},
                                                   {1, other},   {0, other}, {0, sixteen}, {1, sixteen}};
    std::vector<const LogEntry*> entries;
    std::string expected;
    for (const auto& [source, text] : samples) {
        std::vector<short> elements = numbers;
        elements[0] = text == other ? 0 : 1;
        DataEntry* const entry = log_.blob(accesses[source], 0, elements);
        entry->setBest(true);
        entries.push_back(entry);
        expected += (expected.empty() ? "" : ",") + text;
    }
    EXPECT_EQ("[" + expected + "]", values(document({"depth"}, entries)));
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

// The samples of a document are more bytes than its text here.
TEST_F(JsonLogWriterTest, MemoryIsGivenBackToAFileAndWhereThatIsFullTheDocumentEnds) {
    signal(SIGXFSZ, SIG_IGN);
    DataAccess* blob = log_.declareBlob("a.x", Units::NONE, BLOB_FLOAT64LE, 100);
    log_.endDirectory();
    std::vector<double> elements;
    std::string text;
    for (int i = 0; i < 100; ++i) {
        elements.push_back(i % 2 == 0 ? 1e300 : 2e300);
        text += i % 2 == 0 ? ",1e+300" : ",2e+300";
    }
    text[0] = '[';
    text += "]";
    NameList names({"a.x"});
    for (const bool isFull : {false, true}) {
        const FileSizeLimit limit(isFull ? 850 : 100000);
        std::shared_ptr<const OutputOutcome> outcome;
        {
            FileLogWriter file(dir_.path("out").c_str(), new JsonLogWriter(false, 1, names.list(), nullptr, 0, nullptr),
                               false, nullptr);
            outcome = file.getOutcome();
            file.write(log_.blob(blob, 0, elements), nullptr);
            EXPECT_LT(0U, file.heldBytes());
            file.freeMemory();
            EXPECT_EQ(0U, file.heldBytes());
            file.write(log_.blob(blob, 1, elements), nullptr);
        }
        const std::string message =
            "ERROR Failed to write " + dir_.path("out") + ": a temporary file in " + dir_.path("") + ": File too large";
        EXPECT_EQ(isFull ? Lines{message} : Lines{}, messages_.take());
        EXPECT_EQ(isFull, outcome->isIncomplete());
        EXPECT_EQ(isFull ? "[" + text + "]" : "[" + text + "," + text + "]", values(dir_.read("out")));
    }
}
