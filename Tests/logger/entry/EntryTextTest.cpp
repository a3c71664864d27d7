#include "logger/entry/EntryText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

typedef void Append(TextBuffer& text, const Timestamp& t, unsigned int decimals);

static std::string Text(Append* append, const Timestamp& t, unsigned int decimals) {
    TextBuffer text;
    append(text, t, decimals);
    return std::string(text.data(), text.length());
}

static void ExpectAsPrinted(const Timestamp& t) {
    for (const unsigned int decimals : {3u, 6u}) {
        char printed[64];
        snprintf(printed, sizeof printed, "%.*f", static_cast<int>(decimals), t.asDouble());
        EXPECT_EQ(Text(EntryText::AppendSeconds, t, decimals), printed);
        const std::string stamp = std::string(t.toString(3).cStr()) + "," + printed + " ";
        EXPECT_EQ(Text(EntryText::AppendStamp, t, decimals), stamp);
    }
}

TEST(EntryTextTest, StampsAreADateAndTheSecondsOfTheDouble) {
    for (const long seconds : {-2L, -1L, 0L, 1L, 1338553800L, 2147483647L, 4294967295L, 4294967296L, 17179869184L}) {
        for (const long micros :
             {0L, 1L, 499L, 500L, 501L, 1500L, 2500L, 410000L, 999499L, 999500L, 999501L, 999999L}) {
            ExpectAsPrinted(Timestamp(timeval{seconds, micros}));
        }
    }
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        ExpectAsPrinted(Timestamp(timeval{static_cast<long>(random()), static_cast<long>(random() % 1000000)}));
    }
}
