#include <gtest/gtest.h>

#include "Program.h"
#include "support/Command.h"

TEST(UsageTest, NoArgumentsShowHowToUseTheProgram) {
    Program program;
    const Outcome outcome = program.run({});
    EXPECT_EQ(255, outcome.status_);
    EXPECT_EQ("", outcome.err_);
    EXPECT_EQ(OutputOf("cat " EXPECTED_USAGE), outcome.out_);
}

TEST(UsageTest, SeveralInputsWithoutAnOutputNameTouchNothing) {
    Program program;
    program.files().write("a.asc", "kept");
    const std::vector<std::string> lines[] = {
        {"-a", "a;b"}, {"-a", "a\nb"}, {"-a", "a;b", "-o"}, {"-a", "a;b", "-o", ""}};
    for (const auto& arguments : lines) {
        const Outcome outcome = program.run(arguments);
        EXPECT_EQ(254, outcome.status_);
        EXPECT_EQ("Must specify output name with multiple input files.\n", outcome.err_);
        EXPECT_EQ("", outcome.out_);
    }
    EXPECT_EQ("a.asc ", program.list());
    EXPECT_EQ("kept", program.files().read("a.asc"));
}
