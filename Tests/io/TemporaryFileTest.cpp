#include "io/TemporaryFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <tuple>

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

// In a list of neighbour, TMPDIR and what comes of them.
TEST_F(TemporaryFileTest, ItsFolderIsTheFirstThatTakesIt) {
    std::filesystem::create_directory(dir_.path("folder"));
    const std::string beside = dir_.write("folder/out", "");
    const std::string chosen = dir_.path(""), missing = dir_.path("missing");
    const std::tuple<std::string, std::string, std::string> cases[] = {{beside, chosen, dir_.path("folder/")},
                                                                       {"/dev/null", chosen, chosen},
                                                                       {"unknown", chosen, chosen},
                                                                       {"unknown", "", "/var/tmp"},
                                                                       {"unknown", missing, "/var/tmp"}};
    for (const auto& [neighbour, tmpdir, folder] : cases) {
        setenv("TMPDIR", tmpdir.c_str(), 1);
        TemporaryFile file;
        EXPECT_TRUE(file.open(neighbour.c_str()));
        EXPECT_STREQ(folder.c_str(), file.folder().cStr());
    }
    std::filesystem::remove(beside);
    EXPECT_TRUE(std::filesystem::is_empty(dir_.path("folder"))) << "it has no name";
}

TEST_F(TemporaryFileTest, WhereNoneCanBeOpenedTheLastFolderIsToldAndWhy) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer opens files itself";
#endif
    rlimit before;
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{0, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    TemporaryFile file;
    const bool isOpen = file.open("");
    const int error = errno;
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_FALSE(isOpen || file.isOpen());
    EXPECT_EQ(EMFILE, error);
    EXPECT_STREQ("/tmp", file.folder().cStr());
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
    EXPECT_TRUE(file.write(3, "DE", 2));
    EXPECT_EQ(8, file.length());
    char bytes[6] = {};
    EXPECT_TRUE(file.read(2, bytes, 5));
    EXPECT_STREQ("cDEfg", bytes);
    EXPECT_FALSE(file.read(6, bytes, 5));
}
