#include "io/InStream.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "support/MemoryStreams.h"

TEST(InStreamTest, ReadsLittleEndianNumbers) {
    const Str bytes("\xFE\xFE\xFF\xFE\xFF\x01\x02\x80\x04\x03\x02\x81\x08\x07\x06\x05\x04\x03\x02\x01", 20);
    MemoryInStream in(bytes);
    signed char c = 0;
    short s = 0;
    unsigned short u = 0;
    int i24 = 0, i = 0;
    long long l = 0;
    in.readChar(c).readShort(s).readShort(u).readInt24(i24).readInt(i);
    EXPECT_EQ(8u, in.readLongLong(l).bytesRead());
    EXPECT_EQ(std::make_tuple(-2, -2, 65534, -0x7FFDFF, -0x7EFDFCFC, 0x0102030405060708),
              std::make_tuple(c, s, u, i24, i, l));
    EXPECT_EQ(20u, in.getTotalBytesRead());
}

TEST(InStreamTest, ReducedFloatsKeepTheirMostSignificantBytes) {
    const Str bytes("\xC0\x3F\x01\xC0\x3F\x02\x01\xC0\x3F\0\0\0\0\0\0\xF8\x3F", 17);
    MemoryInStream in(bytes);
    float two = 9, three = 9, four = 9;
    double eight = 9;
    in.readFloat2(two).readFloat3(three).readFloat(four).readDouble(eight);
    EXPECT_EQ(1.5f, two);
    EXPECT_EQ(1.500030517578125f, three);        // 3FC00100
    EXPECT_EQ(1.5000307559967041015625f, four);  // 3FC00102
    EXPECT_EQ(1.5, eight);
}

TEST(InStreamTest, HexEndsAtTheFirstOtherCharacter) {
    const Str bytes("fE80FFFEABCD0xG1");
    MemoryInStream in(bytes);
    signed char c = 0;
    unsigned char u = 0, none = 9;
    short s = 0;
    unsigned short us = 0;
    in.readCharHex(c).readUCharHex(u).readShortHex(s).readUShortHex(us).readUCharHex(none);
    EXPECT_EQ(std::make_tuple(-2, 0x80, -2, 0xABCD, 0), std::make_tuple(c, u, s, us, none));
    in.readUShortHex(us);  // two characters are left, and the first of them is no digit
    EXPECT_EQ(0, us);
    EXPECT_TRUE(in.eof());
}

// A line feed that was skipped counts.
TEST(InStreamTest, LinesEndAtEitherHalfOfCrLfOrWithTheirRoom) {
    const Str bytes("abc\r\ndef\n\nx\nlonger");
    const std::pair<const char*, size_t> lines[] = {{"abc", 3}, {"def", 4}, {"x", 2}, {"longe", 5}, {"r", 1}, {"", 0}};
    MemoryInStream in(bytes);
    char buf[6] = "...";
    in.readLine(buf, 0);
    EXPECT_STREQ("...", buf);
    in.readLine(buf, 1);
    EXPECT_STREQ("", buf);
    for (const auto& [text, counted] : lines) {
        EXPECT_EQ(counted, in.readLine(buf, sizeof(buf)).bytesRead());
        EXPECT_STREQ(text, buf);
    }
    EXPECT_TRUE(in.eof());
}

TEST(InStreamTest, ReadUntilKeepsTheDelimiterAndStopsAtItsMaximum) {
    const Str bytes("ab:cd\xFF:e");
    const std::tuple<unsigned int, unsigned char, const char*, size_t> reads[] = {
        {7, ':', "ab:", 3},
        {1, ':', "c", 1},
        {3, 0xFF, "d\xFF:", 3},  // a byte of 0x80 or above delimits nothing
        {7, ':', "e", 2}};       // the place of the missing byte counts
    MemoryInStream in(bytes);
    for (const auto& [maximum, delimiter, text, counted] : reads) {
        char buf[8] = "-------";
        EXPECT_EQ(counted, in.readUntil(buf, maximum, delimiter).bytesRead());
        EXPECT_STREQ(text, buf);
    }
    EXPECT_TRUE(in.eof());
}
