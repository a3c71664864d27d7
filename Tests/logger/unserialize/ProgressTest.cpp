#include "logger/unserialize/Progress.h"

#include <gtest/gtest.h>

#include <tuple>

TEST(ProgressTest, TheLineTellsShareRateAndTimeLeft) {
    const std::tuple<long long, long long, double, const char*> cases[] = {
        // bytes done and in all, seconds, line
        {0, 100, 0, "  0%  0 MB/s  0:00 left"},
        {250000000, 1000000000, 10, " 25%  25 MB/s  0:30 left"},
        {10000000, 1000000000, 10, "  1%  1 MB/s  16:30 left"},
        {1200, 1000, 2, "100%  0 MB/s  0:00 left"},  // parts under other names were not counted
        {1, 9000000000000000000, 3600, "  0%  0 MB/s  5999:59 left"},
    };
    for (const auto& [done, total, seconds, line] : cases) {
        EXPECT_STREQ(line, Progress::Line(done, total, seconds).cStr());
    }
}
