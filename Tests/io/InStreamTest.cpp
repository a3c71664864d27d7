#include "io/InStream.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/MemoryStreams.h"

TEST(InStreamTest, ReadsLittleEndianNumbers) {
    const Str bytes("\xFE\xFE\xFF\xFE\xFF\x01\x02\x80\x04\x03\x02\x81\x08\x07\x06\x05\x04\x03\x02\x01", 20);
    MemoryInStream in(bytes);
    signed char c = 0;
    short s = 0;
    unsigned short u = 0;
    int i24 = 0, i = 0;
    long long l = 0;
    EXPECT_EQ(1u, in.readChar(c).bytesRead());
    in.readShort(s).readShort(u);
    EXPECT_EQ(3u, in.readInt24(i24).bytesRead());
    EXPECT_EQ(4u, in.readInt(i).bytesRead());
    EXPECT_EQ(8u, in.readLongLong(l).bytesRead());
    EXPECT_EQ(-2, c);
    EXPECT_EQ(-2, s);
    EXPECT_EQ(65534, u);
    EXPECT_EQ(-0x7FFDFF, i24);
    EXPECT_EQ(-0x7EFDFCFC, i);
    EXPECT_EQ(0x0102030405060708, l);
    EXPECT_EQ(20u, in.getTotalBytesRead());
    EXPECT_FALSE(in.eof());
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
    in.readCharHex(c).readUCharHex(u).readShortHex(s);
    EXPECT_EQ(4u, in.readUShortHex(us).bytesRead());
    in.readUCharHex(none);
    EXPECT_EQ(-2, c);
    EXPECT_EQ(0x80, u);
    EXPECT_EQ(-2, s);
    EXPECT_EQ(0xABCD, us);
    EXPECT_EQ(0, none);
    in.readUShortHex(us);  // two characters are left, and the first of them is no digit
    EXPECT_EQ(0, us);
    EXPECT_TRUE(in.eof());
}

TEST(InStreamTest, LinesEndAtEitherHalfOfCrLf) {
    const Str bytes("abc\r\ndef\n\nx");
    static const struct {
        const char* text_;
        size_t counted_;  // a line feed that was skipped counts
    } LINES[] = {{"abc", 3}, {"def", 4}, {"x", 2}, {"", 0}};
    MemoryInStream in(bytes);
    for (const auto& line : LINES) {
        char buf[16];
        EXPECT_EQ(line.counted_, in.readLine(buf, sizeof(buf)).bytesRead());
        EXPECT_STREQ(line.text_, buf);
    }
    EXPECT_TRUE(in.eof());
}

TEST(InStreamTest, LongLinesAreReadInPieces) {
    const Str bytes("abcdef\n");
    MemoryInStream in(bytes);
    char buf[4] = "...";
    in.readLine(buf, 0);
    EXPECT_STREQ("...", buf);
    in.readLine(buf, 1);
    EXPECT_STREQ("", buf);
    in.readLine(buf, 4);
    EXPECT_STREQ("abc", buf);
    in.readLine(buf, 4);
    EXPECT_STREQ("def", buf);
}

TEST(InStreamTest, ReadUntilKeepsTheDelimiter) {
    const Str bytes("ab:c");
    MemoryInStream in(bytes);
    char buf[8];
    EXPECT_EQ(3u, in.readUntil(buf, 7, ':').bytesRead());
    EXPECT_STREQ("ab:", buf);
    EXPECT_EQ(2u, in.readUntil(buf, 7, ':').bytesRead());  // the place of the missing byte counts
    EXPECT_STREQ("c", buf);
    EXPECT_TRUE(in.eof());
}

TEST(InStreamTest, ReadUntilStopsAtItsMaximum) {
    const Str bytes("abc\xFF:");
    MemoryInStream in(bytes);
    char buf[6] = "-----";
    EXPECT_EQ(2u, in.readUntil(buf, 2, ':').bytesRead());
    EXPECT_STREQ("ab", buf);
    EXPECT_EQ(3u, in.readUntil(buf, 3, 0xFF).bytesRead());  // a byte of 0x80 or above delimits nothing
    EXPECT_STREQ("c\xFF:", buf);
}
