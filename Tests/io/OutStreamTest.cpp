#include "io/OutStream.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/MemoryStreams.h"

TEST(OutStreamTest, WritesLittleEndianNumbers) {
    MemoryOutStream out;
    out.writeChar(-2).writeShort(-2).writeInt24(-0x7FFDFF).writeInt(-0x7EFDFCFC).writeLongLong(0x0102030405060708);
    EXPECT_EQ(Str("FEFEFF01028004030281"
                  "0807060504030201"),
              out.hex());
    EXPECT_EQ(8u, out.bytesWritten());
}

TEST(OutStreamTest, ReducedNumbersAreCutNotRounded) {
    MemoryOutStream out;
    const float all = -1.99999988079071044921875f;  // BFFFFFFF
    EXPECT_EQ(2u, out.writeFloat2(all).bytesWritten());
    EXPECT_EQ(3u, out.writeFloat3(all).bytesWritten());
    EXPECT_EQ(4u, out.writeFloat(all).bytesWritten());
    EXPECT_EQ(Str("FFBFFFFFBFFFFFFFBF"), out.hex());
    out.clear();
    const double third = 1.0 / 3;  // 3FD5555555555555
    EXPECT_EQ(6u, out.writeDouble6(third).bytesWritten());
    EXPECT_EQ(8u, out.writeDouble(third).bytesWritten());
    EXPECT_EQ(Str("55555555D53F555555555555D53F"), out.hex());
}

TEST(OutStreamTest, HexIsUpperCaseMostSignificantFirst) {
    MemoryOutStream out;
    EXPECT_EQ(2u, out.writeCharHex(-2).bytesWritten());
    EXPECT_EQ(2u, out.writeUCharHex(0x0A).bytesWritten());
    EXPECT_EQ(4u, out.writeShortHex(-2).bytesWritten());
    EXPECT_EQ(4u, out.writeUShortHex(0x0BCD).bytesWritten());
    EXPECT_EQ(2u, out.writeHex("\x0A\xFF", 2).bytesWritten());  // those of the last character
    EXPECT_EQ(2u, out.writeHex("", 0).bytesWritten());
    out.writeHex("*v");
    EXPECT_EQ(Str("FE0AFFFE0BCD0AFF2A76"), out.str());
}

TEST(OutStreamTest, WritesNumbersAsText) {
    static const struct {
        double value_;
        const char* text_;
    } CASES[] = {
        {2.5, "3"}, {-2.7, "-2"}, {0.4, "0"}, {1e300, "2147483647"}, {-INFINITY, "-2147483648"}, {NAN, "0"},
    };
    for (const auto& c : CASES) {
        MemoryOutStream out;
        out.writeNumber(c.value_, 16);  // in base 10 whatever is asked
        EXPECT_EQ(Str(c.text_), out.str());
    }
    MemoryOutStream out;
    out.writeInteger(-2147483647 - 1, 2);
    EXPECT_EQ(Str("00000000000000000000000000000001").length(), out.bytesWritten());
    out.clear();
    out.writeInteger(255, 16);
    EXPECT_EQ(Str("FF"), out.str());
}

TEST(OutStreamTest, ChainsTexts) {
    MemoryOutStream out;
    const OutStream& chained = out << Str("a\0b", 3) << "cd" << 'e' << static_cast<signed char>('f')
                                   << static_cast<unsigned char>(0xFF) << -12;
    EXPECT_EQ(3u, chained.bytesWritten());
    EXPECT_EQ(Str("a\0bcdef\xFF-12", 11), out.str());
}
