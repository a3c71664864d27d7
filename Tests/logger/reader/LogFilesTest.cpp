#include "logger/reader/LogFiles.h"

#include <gtest/gtest.h>

#include "support/TempDir.h"

class LogFilesTest : public testing::Test {
protected:
    LogFilesTest() {
        priorities_.push("Courier");
        priorities_.push("Normal");
    }
    LogFiles filesOf(const std::string& log) { return LogFiles(dir_.path(log).c_str(), &priorities_); }
    // The names offered, each followed by a blank, up to the last one taken.
    std::string offered(const std::string& log, const LogFiles::Take& take) {
        std::string names, upToTaken;
        filesOf(log).offerAll([&](const Str& name) {
            names += std::string(name.cStr()).substr(dir_.path("").size()) + " ";
            if (!take(name)) return false;
            upToTaken = names;
            return true;
        });
        return upToTaken;
    }

    TempDir dir_;
    FlexArray<const char*> priorities_;
};

TEST_F(LogFilesTest, NamesAreOfferedInTheOrderOfTrying) {
    dir_.write("Courier0000.bak", "");
    dir_.write("slate0001", "");
    EXPECT_EQ(
        "slate slate0000 slate0000.bak Courier0000 Courier0000.bak "
        "slate0001 ",
        offered("slate", LogFiles::IsFile));
    dir_.write("slate", "");
    EXPECT_EQ("slate ", offered("slate", LogFiles::IsFile));
}

// Behind as many missing numbers as a reader bridges, and no further.
TEST_F(LogFilesTest, PartsEndWhereTooManyAreMissing) {
    dir_.write("slate.dir0019.bak", "");
    const auto isLast = [](const char* number) {
        return [number](const Str& name) { return name.find(number) != Str::NO_POS; };
    };
    EXPECT_NE("", offered("slate.dir", isLast("0039.bak")));
    EXPECT_EQ("", offered("slate.dir", isLast("0040")));
    EXPECT_EQ("", offered("slate.dir", isLast("Courier")));
}
