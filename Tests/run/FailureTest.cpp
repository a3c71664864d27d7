#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "DiveLog.h"
#include "Program.h"

// Inputs that cannot be read and outputs that cannot be written: one message each, and the run ends as always.

namespace {

class FailureTest : public ::testing::Test {
protected:
    // Runs and gives back the messages, after their times.
    std::string complaints(std::vector<std::string> arguments, const char* standardOutput = nullptr) {
        arguments.insert(arguments.begin(), "-qO");
        const Outcome outcome = program_.run(arguments, standardOutput);
        EXPECT_EQ(0, outcome.status_) << ::testing::PrintToString(arguments);
        error_ = outcome.err_;
        std::string messages;
        for (size_t at = outcome.out_.find("[unserialize]"); at != std::string::npos;
             at = outcome.out_.find("[unserialize]", at + 1)) {
            messages += outcome.out_.substr(at + 13, outcome.out_.find('\n', at) + 1 - at - 13);
        }
        return messages;
    }

    Program program_;
    std::string error_;  // what the last run wrote on standard error
};

}  // namespace

TEST_F(FailureTest, Inputs) {
    const TempDir& files = program_.files();
    std::filesystem::create_directory(files.path("empty directory"));
    files.write("empty", "");
    EXPECT_EQ("(ERROR): No entry was read from missing: No such file or directory\n", complaints({"missing"}));
    EXPECT_EQ("(ERROR): No entry was read from empty\n", complaints({"empty"}));
    EXPECT_EQ("(ERROR): No entry was read from empty directory/slate: No such file or directory\n",
              complaints({"empty directory"}));
    EXPECT_EQ("(ERROR): No entry was read from /dev/null: Invalid argument\n", complaints({"-ao", "out", "/dev/null"}));
    EXPECT_EQ("(ERROR): No directory in missing\n", complaints({"-d", "missing"}));
    EXPECT_EQ("(ERROR): No slate file is given\n", complaints({"-ao", "out", ";"}));
}

TEST_F(FailureTest, OtherInputsAreStillRead) {
    program_.files().write("b", DiveLog::Of(3));
    EXPECT_EQ("(ERROR): No entry was read from a: No such file or directory\n", complaints({"-lo", "out", "a;b"}));
    EXPECT_EQ(3u, CountOf(program_.files().read("out"), "\n"));
}

TEST_F(FailureTest, OutputsThatCannotBeCreated) {
    program_.files().write("dive", DiveLog::Of(3));
    EXPECT_EQ("(ERROR): Failed to open missing/out.asc: No such file or directory\n",
              complaints({"-ao", "missing/out.asc", "dive"}));
    EXPECT_EQ(0u, CountOf(program_.run({"-qao", "missing/out.asc", "dive"}).out_, "rename"));
    EXPECT_EQ("(ERROR): Failed to open .: Is a directory\n", complaints({"-ao", ".", "dive"}));
}

TEST_F(FailureTest, AnOutputNeverReplacesItsInput) {
    const std::string bytes = DiveLog::Of(3);
    program_.files().write("dive", bytes);
    EXPECT_EQ("(ERROR): The output dive is not written, it is an input of this run\n",
              complaints({"-bo", "dive", "dive"}));
    EXPECT_EQ(bytes, program_.files().read("dive"));
}

TEST_F(FailureTest, AFullDisk) {
    program_.files().write("dive", DiveLog::Of(3));
    EXPECT_EQ("(ERROR): Failed to write /dev/full: No space left on device\n",
              complaints({"-ao", "/dev/full", "dive"}));
    complaints({"-ao", "stdout", "dive"}, "/dev/full");
    EXPECT_EQ("Cannot write to standard output: No space left on device\n", error_);
}

TEST_F(FailureTest, AFileThatGrowsTooLargeKeepsWhatWasWritten) {
    program_.files().write("dive", DiveLog::Of(20000));
    const FileSizeLimit limit(1500000);
    EXPECT_EQ("(ERROR): Failed to write dive.asc: File too large\n", complaints({"-a", "dive"}));
    EXPECT_EQ(1500000u, program_.files().read("dive.asc").size());
}
