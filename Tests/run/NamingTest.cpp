#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "DiveLog.h"
#include "Program.h"

// How whole runs name what they make. Every log here lasts from 12:30 to 12:31.

namespace {

const int SECONDS = 65;

class NamingTest : public ::testing::Test {
protected:
    NamingTest() {
        program_.files().write("slate", DiveLog::Of(SECONDS));
        program_.files().write("dive", DiveLog::Of(SECONDS));
    }

    Program program_;
};

}  // namespace

TEST_F(NamingTest, DatesAndLinks) {
    const struct {
        std::vector<std::string> arguments_;
        const char* files_;
    } cases[] = {
        {{"dive"}, "dive dive_201206011230_201206011231.asc slate "},
        {{"-al", "./slate"}, "201206011230_201206011231.asc 201206011230_201206011231.log dive slate "},
        {{"-aO", "dive"}, "dive dive.asc slate "},
        {{"-aOy", "dive"}, "dive dive.asc slate "},
        {{"-ay", "dive"}, "dive dive.asc dive_201206011230_201206011231.asc slate "},
        {{"-ao", "out.txt", "slate"}, "dive out_201206011230_201206011231.txt slate "},
        {{"-ao", "out", "dive"}, "dive out slate "},
        {{"-d", "dive"}, "dive dive.dir slate "},
        {{"-ad", "dive"}, "dive dive.dir dive_201206011230_201206011231.asc slate "},
        {{"-as", "2013-01-01T00:00:00", "dive"}, "dive dive.asc slate "},  // no entry, no dates
        {{"-ao", "stdout", "dive"}, "dive slate "},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(0, program_.run(c.arguments_).status_);
        EXPECT_EQ(c.files_, program_.list()) << ::testing::PrintToString(c.arguments_);
        for (const auto& entry : std::filesystem::directory_iterator(program_.files().path(""))) {
            const std::string name = entry.path().filename().string();
            if (name != "dive" && name != "slate") std::filesystem::remove(entry.path());
        }
    }
}

TEST_F(NamingTest, EarlierResultsGoOnlyWhereTheDirectoryIsNamed) {
    const TempDir& files = program_.files();
    files.write("dive_201206011230_201206011230.asc", "earlier");
    program_.run({"-qa", "dive"});
    EXPECT_TRUE(files.has("dive_201206011230_201206011230.asc"));
    program_.run({"-qa", "./dive"});
    EXPECT_FALSE(files.has("dive_201206011230_201206011230.asc"));
    EXPECT_TRUE(files.has("dive_201206011230_201206011231.asc"));
}

TEST_F(NamingTest, WhatWasSavedIsTold) {
    const std::string out = program_.run({"-ay", "./dive"}).out_;
    EXPECT_NE(std::string::npos, out.find("(INFO): Saved ./dive_201206011230_201206011231.asc\n"));
    EXPECT_NE(std::string::npos, out.find("(INFO): Symlink: ./dive.asc\n"));
    EXPECT_EQ("", program_.run({"-qay", "./dive"}).out_);
}

TEST_F(NamingTest, OutputsThatShareOneName) {
    const std::string out = program_.run({"-qOalo", "out", "dive"}).out_;
    EXPECT_EQ(1u, CountOf(out, "(ERROR): Several outputs are written to out\n"));
    EXPECT_EQ(1u, CountOf(program_.files().read("out"), "VERSION"));  // the text is created after the syslog
    EXPECT_EQ("", program_.run({"-qOao", "out", "dive"}).out_);
}
