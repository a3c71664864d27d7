#include "logger/writer/matlab/HDF5LogWriter.h"

#include "logger/writer/OutputFixture.h"
#include "support/Hdf5Reader.h"

namespace {
class HDF5LogWriterTest : public OutputFixture {
protected:
    // Writes the entries to file.mat or file.h5; the writer is gone when it returns.
    void write(bool matlab, NameList&& names, const std::vector<LogEntry*>& entries, NameList&& units = {},
               NameList&& settings = {}) {
        HDF5LogWriter writer(path(matlab).c_str(), matlab, names.count(), names.list(), units.listOrNull(),
                             settings.count(), settings.list());
        for (const LogEntry* entry : entries) writer.write(entry, nullptr);
    }
    std::string path(bool matlab) const { return dir_.path(matlab ? "file.mat" : "file.h5"); }
};

// A name's value as the file shows it, in both files.
std::string Shown(const Hdf5Reader& file, const std::string& leaf) {
    return file.show(leaf + "/value") + ", " + file.show(leaf + "/units");
}
}  // namespace

// Once each, also when a name is listed twice.
TEST_F(HDF5LogWriterTest, NumbersAreARowInTheUnitAskedFor) {
    DataAccess* depth = log_.declareServing("depth", "Depth.depth", Units::METER);
    DataAccess* gain = log_.declareSetting("Control.gain");
    for (const bool matlab : {true, false}) {
        write(matlab, {"Depth.depth", "depth", "Control.gain", "Depth.depth"},
              {log_.cycle(0), log_.data(depth, 0.41, 1.5), log_.bestData(depth, 1.5, 2), log_.data(depth, 2, NAN),
               log_.data(gain, 0, 7)},
              {"cm", nullptr, "kelvin", nullptr}, {"Control.gain"});
        const Hdf5Reader file(path(matlab));
        EXPECT_EQ("double{1,3}: 150 200 nan, char{2,1}: cm", Shown(file, "Depth/depth"));
        EXPECT_EQ("double{1,1}: 2, char{1,1}: m", Shown(file, "depth"));
        EXPECT_EQ("double{1,1}: 7, char{1,1}: K", Shown(file, "Control/gain"));
        EXPECT_EQ("cm", file.att("Depth/depth/value", "units"));
        EXPECT_EQ("depth", file.att("Depth/depth/value", "standard_name"));
        EXPECT_EQ("none", file.att("Control/gain/value", "standard_name"));
        EXPECT_EQ(matlab ? "day since -0001/12/31T00:00:00Z" : "second since 1970/01/01T00:00:00Z",
                  file.att("depth/time", "units"));
        EXPECT_EQ(matlab ? "double{1,1}: 735022" : "double{1,1}: 1.33855e+09", file.show("depth/time"));
    }
    EXPECT_TRUE(messages_.take().empty());
}

TEST_F(HDF5LogWriterTest, TextsAreCellsForMatlabAndStringsForOthers) {
    DataAccess* mode = log_.declareText("Mission.mode");
    for (const bool matlab : {true, false}) {
        write(matlab, {"Mission.mode"},
              {log_.text(mode, 0, "dive"), log_.text(mode, 1, "dive"), log_.text(mode, 2, ""),
               log_.text(mode, 3, Str("a\0b", 3)), log_.text(mode, 4, "\xC3\xA4\xF0\x9F\x90\x9F\xFF")});
    }
    const Hdf5Reader mat(path(true));
    EXPECT_EQ(
        "cell{1,5}: [char{4,1}: dive] [char{4,1}: dive] [empty char] [char{3,1}: a\\x0b] "
        "[char{4,1}: \\xe4\\xd83d\\xdc1f\\xfffd]",
        mat.show("Mission/mode/value"));
    EXPECT_EQ("0 1 2 3 ", mat.list("#refs#"));
    EXPECT_EQ(
        "texts{1,5}: dive|dive||a\xEF\xBF\xBD"
        "b|\xC3\xA4\xF0\x9F\x90\x9F\xEF\xBF\xBD|",
        Hdf5Reader(path(false)).show("Mission/mode/value"));
}

TEST_F(HDF5LogWriterTest, VariablesWithoutASampleAreEmpty) {
    log_.declare("A.number", Units::METER);
    log_.declareText("A.text");
    log_.declareBlob("A.open", Units::NONE, BLOB_UINT8);
    log_.declareUntyped("A.untyped");
    log_.declareServing("latitude", "latitude", Units::DEGREE);
    log_.endDirectory();
    for (const bool matlab : {true, false}) {
        write(matlab,
              {"A.number", "A.text", "A.open", "A.unknown", "A.unknownToo", "A.untyped", "latitude", "A.unknown"},
              {log_.cycle(0)}, {nullptr, nullptr, nullptr, nullptr, nullptr, "meter", nullptr, "meter"});
        const Hdf5Reader file(path(matlab));
        EXPECT_EQ("empty double, char{1,1}: m", Shown(file, "A/number"));
        EXPECT_EQ(matlab ? "empty cell" : "empty none", file.show("A/text/value"));  // strings of HDF5 have no class
        EXPECT_EQ("empty cell", file.show("A/open/value"));
        EXPECT_EQ("empty double, char{1,1}: m", Shown(file, "A/unknown"));
        EXPECT_EQ("number open text unknown ", file.list("A"));
        EXPECT_EQ("latitude", file.att("latitude/value", "standard_name"));
        EXPECT_EQ(matlab ? "day since -0001/12/31T00:00:00Z" : "second since 1970/01/01T00:00:00Z",
                  file.att("latitude/time", "units"));
    }
    EXPECT_NE(std::string::npos, dir_.read("file.mat").find("Thu Jan  1 00:00:00 1970"));
}

// Each of the names keeps its values.
TEST_F(HDF5LogWriterTest, NamesThatClash) {
    const std::string longName = "L." + std::string(70, 'a');
    const std::string cut = "L/" + std::string(63, 'a'), numbered = "L/" + std::string(61, 'a') + "_2";
    const std::pair<std::string, std::string> places[] = {{"a.b.c", "a/b/c"},
                                                          {"a.b.value", "a/b/value_2"},
                                                          {"a.b", "a/b"},
                                                          {"a:b", "a/b_2"},
                                                          {"a.B", "a/B"},
                                                          {"m-n.x", "m_n/x"},
                                                          {"m n.x", "m_n_2/x"},
                                                          {"m_n.x", "m_n_3/x"},
                                                          {".", "x/x"},
                                                          {"9.units", "x9/units"},
                                                          {"a.b..d", "a/b/x/d"},
                                                          {longName + "1", cut},
                                                          {longName + "2", numbered}};
    NameList names;
    std::vector<LogEntry*> entries;
    for (const auto& [name, place] : places) {
        names.add(name);
        entries.push_back(log_.data(log_.declare(name.c_str()), 0, static_cast<double>(entries.size())));
    }
    write(true, std::move(names), entries);
    const Hdf5Reader file(path(true));
    int index = 0;
    for (const auto& [name, place] : places) {
        EXPECT_EQ("double{1,1}: " + std::to_string(index++), file.show(place + "/value")) << name;
        EXPECT_EQ(name, file.att(place, "name"));
    }
    EXPECT_TRUE(messages_.take().empty());
}

TEST_F(HDF5LogWriterTest, ANameMayBecomeKnownLaterAndAnotherInputGoesOn) {
    DataAccess* first = log_.declare("A.first");
    NameList names{"A.second", "A.first"};
    HDF5LogWriter writer(path(true).c_str(), true, names.count(), names.list(), nullptr, 0, nullptr);
    writer.write(log_.data(first, 0, 1), nullptr);
    writer.write(log_.data(log_.declare("A.second"), 1, 2), nullptr);
    Slate::ClearDirectory();
    writer.resetInputs();
    log_.declare("B.other");
    writer.write(log_.data(log_.declare("A.second"), 2, 3), nullptr);
    writer.writeFooter();
    const Hdf5Reader file(path(true));
    EXPECT_EQ("double{1,1}: 1", file.show("A/first/value"));
    EXPECT_EQ("double{1,2}: 2 3", file.show("A/second/value"));
}
