#include "logger/unserialize/OutputNaming.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <tuple>

#include "logger/unserialize/Inputs.h"
#include "support/CapturedLog.h"
#include "support/TempDir.h"

namespace {

const Timestamp FIRST(1338553800, 0);  // 2012-06-01T12:30:00Z
const Timestamp LAST(1338560100, 0);   // 2012-06-01T14:15:00Z

class OutputNamingTest : public ::testing::Test {
protected:
    void finish(const std::string& path) {
        const Logger& logger = log_;
        OutputNaming(settings_, Inputs(settings_), FIRST, LAST, logger).finish(path.c_str());
    }

    TempDir directory_;
    RunSettings settings_;
    CapturedLog log_;
};

}  // namespace

TEST_F(OutputNamingTest, DatesStandBeforeTheExtension) {
    // The log, whether an output name is given, the file's name, and what becomes of it.
    const std::tuple<const char*, bool, const char*, const char*> cases[] = {
        {"dive", false, "dive.csv", "dive_201206011230_201206011415.csv"},
        {"slate", false, "slate.csv", "201206011230_201206011415.csv"},
        {"myslate", false, "myslate.nc4", "my201206011230_201206011415.nc4"},
        {"SLATE", false, "SLATE.csv", "SLATE_201206011230_201206011415.csv"},
        {"slate", true, "slate.csv", "slate_201206011230_201206011415.csv"},
        {"dive", true, "a.b.csv", "a.b_201206011230_201206011415.csv"},
        {"dive", true, ".csv", "_201206011230_201206011415.csv"},
    };
    for (const auto& [log, isNameGiven, name, datedName] : cases) {
        settings_.slateFile_ = directory_.path(log).c_str();
        settings_.outputNameGiven_ = isNameGiven;
        finish(directory_.write(name, name));
        EXPECT_EQ(name, directory_.read(datedName));
        EXPECT_FALSE(directory_.has(name)) << name;
        EXPECT_EQ(Lines{"INFO Saved " + directory_.path(datedName)}, log_.take());
    }
}

TEST_F(OutputNamingTest, ANameWithoutExtensionStays) {
    std::filesystem::create_directory(directory_.path("logs.d"));
    for (const char* const name : {"out", "logs.d/out"}) {
        finish(directory_.write(name, "x"));
        EXPECT_EQ("x", directory_.read(name));
    }
    EXPECT_EQ(Lines{}, log_.take());
}

TEST_F(OutputNamingTest, ResultsOfTheSameStartAreReplaced) {
    const std::pair<const char*, bool> earlier[] = {
        // with whether it stays
        {"dive_201206011230_201206011300.csv", false}, {"dive_201206011230.csv", false},
        {"dive_201206011229_201206011300.csv", true},  {"dive_201206011230_201206011300.nc", true},
        {"Dive_201206011230_201206011300.csv", true},  {"dive_201206011230_x.csv~", true}};
    for (const auto& [name, stays] : earlier) directory_.write(name, "old");
    finish(directory_.write("dive.csv", "new"));
    for (const auto& [name, stays] : earlier) EXPECT_EQ(stays, directory_.has(name)) << name;
    EXPECT_EQ("new", directory_.read("dive_201206011230_201206011415.csv"));
    Lines lines = log_.take();
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ((Lines{"INFO Removed " + directory_.path("dive_201206011230.csv"),
                     "INFO Removed " + directory_.path("dive_201206011230_201206011300.csv"),
                     "INFO Saved " + directory_.path("dive_201206011230_201206011415.csv")}),
              lines);
}

TEST_F(OutputNamingTest, TheLinkPointsIntoItsOwnDirectory) {
    settings_.symlink_ = true;
    const std::string path = directory_.write("dive.csv", "new");
    finish(path);
    EXPECT_EQ("dive_201206011230_201206011415.csv", std::filesystem::read_symlink(path));
    EXPECT_EQ("new", directory_.read("dive.csv"));
    EXPECT_EQ((Lines{"INFO Saved " + directory_.path("dive_201206011230_201206011415.csv"), "INFO Symlink: " + path}),
              log_.take());
}

// What can fail is said, with the reason.

TEST_F(OutputNamingTest, AFileThatIsNotThere) {
    const std::string path = directory_.path("dive.csv");
    directory_.write("dive_201206011230_201206011300.csv", "earlier");
    finish(path);
    EXPECT_TRUE(directory_.has("dive_201206011230_201206011300.csv"));
    EXPECT_EQ(Lines{"ERROR Could not rename " + path + " to " + directory_.path("dive_201206011230_201206011415.csv") +
                    " due to No such file or directory"},
              log_.take());
}

TEST_F(OutputNamingTest, AnInputIsNeitherRemovedNorReplaced) {
    for (const char* const input : {"dive_201206011230_x.csv", "dive_201206011230_201206011415.csv"}) {
        settings_.slateFile_ = directory_.write(input, "log").c_str();
        finish(directory_.write("dive.csv", "new"));
        EXPECT_EQ("log", directory_.read(input));
        log_.take();
    }
    EXPECT_EQ("new", directory_.read("dive.csv"));
}

TEST_F(OutputNamingTest, AFileInTheWorkingDirectory) {
    std::filesystem::current_path(directory_.path(""));
    directory_.write("dive.csv", "x");
    finish("dive.csv");
    std::filesystem::current_path("/");
    EXPECT_TRUE(directory_.has("dive_201206011230_201206011415.csv"));
    EXPECT_EQ(
        (Lines{"ERROR Unserialize is unable to open directory: ", "INFO Saved dive_201206011230_201206011415.csv"}),
        log_.take());
}
