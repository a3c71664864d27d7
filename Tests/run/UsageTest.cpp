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

// The usage and the manual page tell of the same options; -u alone has no effect, which the page says in its own place.
TEST(UsageTest, TheManualPageHasEveryOption) {
    const std::string listed =
        OutputOf("grep -oE ' option.? -[A-Za-z]' " EXPECTED_USAGE " | grep -o '.$' | grep -v u | sort");
    const std::string described =
        OutputOf("grep -A1 '^.TP$' " MANUAL_PAGE " | sed -nE 's/^.BI? .-([A-Za-z])( .*)?$/\\1/p' | sort");
    EXPECT_LT(50u, listed.size());
    EXPECT_EQ(listed, described);
    EXPECT_NE("", OutputOf("grep -A1 '^.BR .-t \" and \" .-u$' " MANUAL_PAGE " | grep 'have no effect'"));
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
