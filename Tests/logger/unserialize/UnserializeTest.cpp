#include "logger/unserialize/Unserialize.h"

#include <gtest/gtest.h>

#include <vector>

#include "run/DiveLog.h"
#include "support/TempDir.h"

// What a run makes of its inputs is tested on the built program; here it shares a process with other runs.
class UnserializeTest : public ::testing::Test {
protected:
    int run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"unserialize", "-qO"});
        std::vector<char*> argv;
        for (std::string& argument : arguments) argv.push_back(argument.data());
        return Unserialize::Run(static_cast<int>(argv.size()), argv.data());
    }
    // All that the program makes of the log, but for formats that hold the time at which they were written.
    std::string convert(const std::string& log) {
        EXPECT_EQ(0, run({"-abcdjKl", files_.path(log)}));
        std::string all;
        for (const char* const extension : {".asc", ".bin", ".csv", ".dir", ".js", ".kml", ".log"}) {
            all += files_.read(log + extension);
        }
        return all;
    }

    TempDir files_;
};

TEST_F(UnserializeTest, ARunKnowsNothingOfTheRunsBefore) {
    files_.write("dive", DiveLog::Of(5));
    const std::string first = convert("dive");
    const std::string other = "*v 0003\n*n code=0000 name=\"Other\"\n*e code=0000 elementURI=\"Other.x\" type=02\n";
    files_.write("other", other + "\x03\x01 damaged");
    EXPECT_EQ(0, run({"-dlL", "-P", "a", "-r", "Survey", files_.path("other"), "depth", "0.5", "(foot)"}));
    EXPECT_EQ(first, convert("dive"));
}
