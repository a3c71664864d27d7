#include "io/OldFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "support/TempDir.h"

TEST(OldFileTest, OnlyFilesAndLinksToFilesGo) {
    const TempDir dir;
    const int held = open(dir.write("file", "x").c_str(), O_WRONLY);
    ASSERT_EQ(0, mkfifo(dir.path("pipe").c_str(), 0600));
    std::filesystem::create_directory(dir.path("folder"));
    const std::pair<const char*, std::string> links[] = {
        {"toFile", "file"},         {"toNothing", "nothing"}, {"toPipe", "pipe"},
        {"toDevice", "/dev/full"},  {"toLink", "toDevice"},   {"toOpenFile", "/proc/self/fd/" + std::to_string(held)},
        {"toOutput", "/dev/stdout"}};
    for (const auto& [name, target] : links) std::filesystem::create_symlink(target, dir.path(name));
    for (const char* name : {"pipe", "toPipe", "toDevice", "toLink", "toOpenFile", "toOutput"}) {
        EXPECT_TRUE(IsWrittenThrough(dir.path(name).c_str())) << name;
        EXPECT_FALSE(RemoveOldFile(dir.path(name).c_str())) << name;
    }
    for (const char* name : {"folder", "missing"}) {
        EXPECT_FALSE(IsWrittenThrough(dir.path(name).c_str()) || RemoveOldFile(dir.path(name).c_str())) << name;
    }
    for (const char* name : {"toFile", "toNothing", "file"}) {
        EXPECT_FALSE(IsWrittenThrough(dir.path(name).c_str())) << name;
        EXPECT_TRUE(RemoveOldFile(dir.path(name).c_str())) << name;
        EXPECT_FALSE(std::filesystem::is_symlink(dir.path(name)) || dir.has(name)) << name;
    }
    close(held);
}
