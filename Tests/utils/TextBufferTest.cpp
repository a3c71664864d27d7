#include "utils/TextBuffer.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

static std::string Fixed(double value, unsigned int decimals) {
    char buf[NumberText::MAX_LENGTH + 1];
    const size_t length = NumberText::Fixed(value, decimals, buf);
    EXPECT_EQ(length, strlen(buf));
    return buf;
}

static std::string Printed(double value, unsigned int decimals) {
    char buf[NumberText::MAX_LENGTH + 1];
    snprintf(buf, sizeof(buf), "%.*f", static_cast<int>(decimals), value);
    return buf;
}

TEST(NumberTextTest, WritesWhatPrintfWrites) {
    std::mt19937_64 random(20120601);
    for (int i = 0; i < 6000; ++i) {
        const unsigned long long bits = random();
        double anyMagnitude;
        memcpy(&anyMagnitude, &bits, sizeof(bits));
        if (std::isnan(anyMagnitude)) continue;
        // Binary fractions hit exact halves at many decimals; the last one straddles the limit of the quick way.
        const double values[] = {
            anyMagnitude, std::ldexp(static_cast<double>(bits % 1000003), -static_cast<int>(i % 60)),
            -static_cast<double>(bits % 4000000000) / 1e4, std::ldexp(static_cast<double>(bits >> 11), -20 - i % 3)};
        const unsigned int decimals = static_cast<unsigned int>(i % 12);
        for (const double value : values) ASSERT_EQ(Printed(value, decimals), Fixed(value, decimals)) << decimals;
    }
}

TEST(NumberTextTest, RoundsAnExactHalfToTheEvenDigit) {
    EXPECT_EQ("0", Fixed(0.5, 0));
    EXPECT_EQ("2", Fixed(1.5, 0));
    EXPECT_EQ("0.12", Fixed(0.125, 2));
    EXPECT_EQ("0.38", Fixed(0.375, 2));
    EXPECT_EQ("10.0", Fixed(9.96875, 1));
}

TEST(NumberTextTest, SpecialValues) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ("nan", Fixed(NAN, 6));
    EXPECT_EQ("nan", Fixed(-NAN, 0));
    EXPECT_EQ("inf", Fixed(infinity, 3));
    EXPECT_EQ("-inf", Fixed(-infinity, 3));
    EXPECT_EQ("-0.00", Fixed(-0.0, 2));
    EXPECT_EQ("-0.000000", Fixed(-5e-324, 6));
}

TEST(NumberTextTest, CutsAtThirtyCharacters) {
    EXPECT_EQ("100000000000000001097906362944", Fixed(1e308, 6));
    EXPECT_EQ(30u, Fixed(-1.0 / 3, 5000).length());
    EXPECT_EQ("0." + std::string(28, '0'), Fixed(5e-324, UINT_MAX));
}

TEST(TextBufferTest, FormatsIntegers) {
    TextBuffer text;
    text.appendInt(LLONG_MIN).append(' ').appendInt(0).append(' ').appendHex(0).append(' ').appendHex(0x1A2Bu);
    text.append(" ").appendHexDigits(0xABCDu, 4).append(' ').appendHexDigits(0xABCDu, 2).append(' ');
    text.appendHexDigits(5, 20).append(' ').append(Str("end"));
    EXPECT_EQ(Str("-9223372036854775808 0 0 1A2B ABCD CD 00000000000000000005 end"), text.toStr());
}

TEST(TextBufferTest, OutgrowsItsOwnRoom) {
    TextBuffer text;
    std::string expected;
    for (int i = 0; i < 500; ++i) {
        text.appendInt(i).appendFixed(i / 8.0, 3);
        expected += std::to_string(i) + Printed(i / 8.0, 3);
    }
    const std::string longPiece(5000, 'x');
    text.append(longPiece.data(), longPiece.size());
    EXPECT_EQ(expected + longPiece, std::string(text.data(), text.length()));
    text.clear();
    EXPECT_EQ(Str("abc"), text.append("abc").toStr());
}
