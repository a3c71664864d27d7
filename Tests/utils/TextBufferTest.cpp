#include "utils/TextBuffer.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <utility>

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
        // Binary fractions hit exact halves at many decimals; the last two straddle the limits of the quick way, where
        // a number is all fraction, or has none.
        const double values[] = {
            anyMagnitude, std::ldexp(static_cast<double>(bits % 1000003), -static_cast<int>(i % 60)),
            -static_cast<double>(bits % 4000000000) / 1e4, std::ldexp(static_cast<double>(bits >> 11), -50 - i % 30),
            std::ldexp(static_cast<double>(bits >> 11), -(i % 3))};
        const unsigned int decimals = static_cast<unsigned int>(i % 2 == 0 ? 3 + i / 2 % 2 * 3 : i % 12);
        for (const double value : values) ASSERT_EQ(Printed(value, decimals), Fixed(value, decimals)) << decimals;
    }
}

TEST(NumberTextTest, SpecialValuesAndLongTexts) {
    const std::pair<double, const char*> rows[] = {{NAN, "nan"},        {-NAN, "nan"},   {INFINITY, "inf"},
                                                   {-INFINITY, "-inf"}, {-0.0, "-0.00"}, {-5e-324, "-0.00"}};
    for (const auto& [value, text] : rows) EXPECT_EQ(text, Fixed(value, 2));
    EXPECT_EQ("100000000000000001097906362944", Fixed(1e308, 6));  // cut at thirty characters
    EXPECT_EQ("0." + std::string(28, '0'), Fixed(5e-324, UINT_MAX));
}

TEST(TextBufferTest, WholeNumbersAreNotCut) {
    char printed[400];
    for (const double value : {-DBL_MAX, 1e300, -1e25, -0.0, 21.5, 5e-324}) {
        for (const unsigned int decimals : {0u, 6u}) {
            snprintf(printed, sizeof printed, "%.*f", static_cast<int>(decimals), value);
            EXPECT_EQ(Str(printed), TextBuffer().appendWhole(value, decimals).toStr());
        }
    }
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
        text.appendInt(i).append(',');
        expected += std::to_string(i) + ',';
    }
    EXPECT_EQ(expected, std::string(text.data(), text.length()));
    text.clear();
    EXPECT_EQ(Str("abc"), text.append("abc").toStr());
    for (size_t length = 470; length <= 512; ++length) {  // with its number around the end of that room
        TextBuffer full;
        full.append(std::string(length, 'x').c_str()).appendFixed(1e30, 6);
        EXPECT_EQ(std::string(length, 'x') + Fixed(1e30, 6), full.toStr().cStr());
    }

    char place[8];
    TextBuffer lent(place, sizeof place);
    lent.append("12345678");
    EXPECT_EQ(place, lent.data());
    EXPECT_EQ(Str("123456789"), lent.append('9').toStr());
}
