#include "utils/Timespan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>

TEST(TimespanTest, TextKeepsOneDigitMore) {
    const Timespan span(1, 500000);
    static const char* const BY_DECIMALS[] = {"1",       "1.50",     "1.500",    "1.5000",
                                              "1.50000", "1.500000", "1.500000", "1.500000"};
    for (int decimals = 0; decimals < 8; ++decimals)
        EXPECT_STREQ(BY_DECIMALS[decimals], span.toString(decimals).cStr());
    EXPECT_STREQ("-1.5000", (Timespan::ZERO_TIMESPAN - Timespan(0, 500000)).toString(3).cStr());

    char buf[8];
    EXPECT_STREQ("1.5", span.toString(buf, 4, 3));
}

TEST(TimespanTest, Arithmetic) {
    EXPECT_EQ(Timespan::Days(1),
              Timespan::Hours(23) + Timespan::Minutes(59) + Timespan::Seconds(59.75) + Timespan::Milliseconds(250));
    EXPECT_EQ(86400.0 * 2147483647, Timespan::Days(2147483647).asDouble());
    EXPECT_TRUE(std::isnan(Timespan::INVALID_TIMESPAN.asDouble()));
    Timespan span(1, 700000);
    span += Timespan(0, 600000);
    EXPECT_EQ(Timespan(2, 300000), span);
    span -= timeval{1, 400000};
    EXPECT_EQ(Timespan(0, 900000), span);
    EXPECT_EQ(Timespan(-1, 900000), span - Timespan(1, 0));
}

TEST(TimespanTest, Durations) {
    const std::pair<const char*, double> rows[] = {{"P1D12H", 129600}, {"P1.5H", 5400}, {"P2M.25S", 120.25},
                                                   {"P", 0},           {"P0", 0},       {"PS", 0},
                                                   {"P0 1S", 1},       {"P1D ", 86400}};
    for (const auto& [text, seconds] : rows) {
        Timespan span(7, 0);
        EXPECT_TRUE(span.setDuration(text)) << text;
        EXPECT_EQ(seconds, span.asDouble()) << text;
    }
    const std::string tooLong = "P" + std::string(400, '9') + "S";
    for (const char* text : {"", "1D", "P10", "P1 S", "PT1H", "P1Y", "P1W", "P1..5H", "P1.2.3S", "P1D2", "P-1S",
                             tooLong.c_str(), static_cast<const char*>(nullptr)}) {
        Timespan span(7, 0);
        EXPECT_FALSE(span.setDuration(text));
        EXPECT_EQ(Timespan(7, 0), span);
    }
}
