#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "RunFixture.h"

// Logs that are written again and read back.

namespace {

class RoundTripTest : public RunFixture {
protected:
    // The text of a log, limited to the names.
    std::string textOf(const std::string& log, const std::vector<std::string>& names = {}, const char* options = "-a") {
        std::vector<std::string> arguments = {options, log};
        arguments.insert(arguments.end(), names.begin(), names.end());
        runInSilence(arguments);
        return read(log + ".asc");
    }
};

// The lines of a text dump that are not about the directory.
std::string WithoutDirectory(const std::string& text) {
    std::istringstream in(text);
    std::string kept;
    for (std::string line; std::getline(in, line);) {
        const std::string kind = line.substr(0, line.find(' '));
        if (kind != "VERSION" && kind != "NAME" && kind != "ELEMENT" && kind != "ACCESSOR") kept += line + "\n";
    }
    return kept;
}

// Expects the same lines, with times that may differ by two milliseconds: many entries keep no more than milliseconds
// since a base, which a copy counts from another base.
void ExpectAlike(const std::string& text, const std::string& copy) {
    std::istringstream lines(text), copiedLines(copy);
    for (std::string line, copied; std::getline(lines, line);) {
        ASSERT_TRUE(std::getline(copiedLines, copied)) << line;
        const size_t time = line.find(',') + 1, rest = line.find(' ', time);
        ASSERT_EQ(line.substr(rest), copied.substr(rest)) << line;
        ASSERT_NEAR(atof(line.c_str() + time), atof(copied.c_str() + time), 0.0021) << line;
    }
}

}  // namespace

// Without the corrections of the clock, which the copy has behind it.
TEST_F(RoundTripTest, ALogOfEveryVersionReadsBackTheSame) {
    for (const char* dive :
         {"--version 3 --seed 1", "--version 4 --seed 2", "--version 5 --seed 3", "--version 6 --seed 4",
          "--version 7 --seed 5", "--version 8 --seed 6", "--version 8 --seed 20120601"}) {
        synthesize(std::string("--minutes 0.5 ") + dive);
        const std::string text = textOf("dive", {}, "-aL");
        EXPECT_LT(100000u, text.size());
        runInSilence({"-bL", "dive"});
        EXPECT_TRUE(text == textOf("dive.bin", {}, "-aL")) << dive;
    }
}

TEST_F(RoundTripTest, ACorrectedLogReadsBackWithinMilliseconds) {
    synthesize("--minutes 2");
    const std::string text = textOf("dive");
    EXPECT_NE(std::string::npos, text.find("GPS fix at: "));
    runInSilence({"-b", "dive"});
    ExpectAlike(text, textOf("dive.bin"));
}

TEST_F(RoundTripTest, SelectedVariablesReadBackWithTheLogsDirectory) {
    synthesize("--minutes 0.5");
    const std::vector<std::string> names = {"DepthSensor.depth", "CTD.sea_water_temperature"};
    const std::string text = textOf("dive", names);
    EXPECT_LT(10000u, text.size());
    runInSilence({"-b", "dive", names[0], names[1]});
    runInSilence({"-d", "dive"});
    std::filesystem::rename(path("dive.dir"), path("dive.bin.dir"));
    EXPECT_EQ(text, textOf("dive.bin", names));
    EXPECT_EQ(text, textOf("dive.bin"));
}

TEST_F(RoundTripTest, AThinnedLogReadsBackAsTheThinnedSeries) {
    synthesize("--minutes 4");
    const std::vector<std::string> bounds = {"DepthSensor.depth",  "0.2",      "CTD.sea_water_temperature", "0.01",
                                             "Navigator.latitude", "0.0000001"};
    const std::string thinned = textOf("dive", bounds);
    EXPECT_LT(1000u, thinned.size());
    EXPECT_GT(WithoutDirectory(textOf("dive", {bounds[0], bounds[2], bounds[4]})).size(), thinned.size() * 2);
    std::vector<std::string> arguments = {"-b", "dive"};
    arguments.insert(arguments.end(), bounds.begin(), bounds.end());
    runInSilence(arguments);
    EXPECT_EQ(thinned, WithoutDirectory(textOf("dive.bin")));
}
