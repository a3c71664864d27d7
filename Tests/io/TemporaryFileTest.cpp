#include "io/TemporaryFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>

#include "support/FileSizeLimit.h"
#include "support/TempDir.h"

class TemporaryFileTest : public testing::Test {
protected:
    TemporaryFileTest() { setenv("TMPDIR", dir_.path("").c_str(), 1); }
    ~TemporaryFileTest() override {
        if (before_.empty()) {
            unsetenv("TMPDIR");
        } else {
            setenv("TMPDIR", before_.c_str(), 1);
        }
    }

    const std::string before_ = getenv("TMPDIR") == nullptr ? "" : getenv("TMPDIR");
    const TempDir dir_;
};

TEST_F(TemporaryFileTest, ItsFolderIsThatOfAPlainFileOrTmpdir) {
    std::filesystem::create_directory(dir_.path("folder"));
    const std::string beside = dir_.write("folder/out", "");
    const std::pair<std::string, std::string> cases[] = {
        {beside, dir_.path("folder/")}, {"/dev/null", dir_.path("")}, {"unknown", dir_.path("")}};
    for (const auto& [neighbour, folder] : cases) {
        TemporaryFile file;
        EXPECT_TRUE(file.open(neighbour.c_str()));
        EXPECT_STREQ(folder.c_str(), file.folder().cStr());
    }
    std::filesystem::remove(beside);
    EXPECT_TRUE(std::filesystem::is_empty(dir_.path("folder"))) << "it has no name";
    setenv("TMPDIR", dir_.path("missing").c_str(), 1);
    TemporaryFile none;
    EXPECT_FALSE(none.open(beside.c_str()));
    EXPECT_EQ(ENOENT, errno);
}

TEST_F(TemporaryFileTest, GivesBackWhatItTook) {
    signal(SIGXFSZ, SIG_IGN);
    const FileSizeLimit limit(10);
    TemporaryFile file;
    ASSERT_TRUE(file.open(""));
    EXPECT_TRUE(file.append("abcd", 4) && file.append("efgh", 4));
    EXPECT_FALSE(file.append("ijkl", 4));
    EXPECT_EQ(EFBIG, errno);
    EXPECT_EQ(8, file.length());
    char bytes[6] = {};
    EXPECT_TRUE(file.read(2, bytes, 5));
    EXPECT_STREQ("cdefg", bytes);
    EXPECT_FALSE(file.read(6, bytes, 5));
}
