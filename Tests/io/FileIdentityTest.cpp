#include "io/FileIdentity.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/TempDir.h"

TEST(FileIdentityTest, AFileIsTheSameUnderEveryPath) {
    const TempDir dir;
    const auto identity = [&dir](const char* name) { return FileIdentity(dir.path(name).c_str()); };
    dir.write("file", "x");
    std::filesystem::create_directory(dir.path("folder"));
    std::filesystem::create_symlink("file", dir.path("link"));
    std::filesystem::create_hard_link(dir.path("file"), dir.path("folder/other"));
    for (const char* path : {"./file", "link", "folder/other"}) EXPECT_EQ(identity("file"), identity(path)) << path;
    for (const char* path : {"folder", "new", "no/file"}) EXPECT_NE(identity("file"), identity(path)) << path;
    EXPECT_EQ(identity("new"), identity("folder/../new"));  // where it would be made
    for (const char* path : {"newer", "folder/new"}) EXPECT_NE(identity("new"), identity(path)) << path;
    EXPECT_NE(identity("no/new"), identity("no/new"));  // nowhere
}
