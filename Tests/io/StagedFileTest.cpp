#include "io/StagedFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "support/TempDir.h"

class StagedFileTest : public testing::Test {
protected:
    void stage(const char* name, bool isWhole) {
        StagedFile staged(dir_.path(name).c_str());
        const std::string before = dir_.read(name);
        std::ofstream(staged.name().cStr()) << "new";
        EXPECT_EQ(before, dir_.read(name));
        EXPECT_TRUE(!isWhole || staged.putInPlace());
    }
    long entries() const {
        return std::distance(std::filesystem::directory_iterator(dir_.path("")), std::filesystem::directory_iterator());
    }

    TempDir dir_;
};

TEST_F(StagedFileTest, TakesItsPlaceWhenItIsWhole) {
    dir_.write("target", "kept");
    std::filesystem::create_symlink("target", dir_.path("a"));
    for (const bool isWhole : {false, true}) {
        stage("a", isWhole);
        EXPECT_EQ(isWhole ? "new" : "kept", dir_.read("a"));
        EXPECT_EQ("kept", dir_.read("target"));
        EXPECT_EQ(2, entries());
    }
    stage("b", false);
    EXPECT_FALSE(dir_.has("b"));
    stage("b", true);
    struct stat status;
    ASSERT_EQ(0, stat(dir_.path("b").c_str(), &status));
    EXPECT_NE(0u, status.st_mode & S_IRGRP);  // the rights of any file
}

TEST_F(StagedFileTest, TheRestIsWrittenInItsPlace) {
    ASSERT_EQ(0, mkfifo(dir_.path("pipe").c_str(), 0600));
    for (const std::string& place : {dir_.path("pipe"), dir_.path("missing/a"), dir_.path("")}) {
        StagedFile staged(place.c_str());
        EXPECT_STREQ(place.c_str(), staged.name().cStr());
    }
    EXPECT_TRUE(dir_.has("pipe"));
}
