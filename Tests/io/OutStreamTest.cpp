#include "io/OutStream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

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
    const double third = 1.0 / 3;                   // 3FD5555555555555
    out.writeFloat2(all).writeFloat3(all).writeFloat(all).writeDouble(third);
    EXPECT_EQ(6u, out.writeDouble6(third).bytesWritten());
    EXPECT_EQ(Str("FFBFFFFFBFFFFFFFBF555555555555D53F55555555D53F"), out.hex());
}

TEST(OutStreamTest, HexIsUpperCaseMostSignificantFirst) {
    MemoryOutStream out;
    out.writeCharHex(-2).writeUCharHex(0x0A).writeShortHex(-2);
    EXPECT_EQ(4u, out.writeUShortHex(0x0BCD).bytesWritten());
    EXPECT_EQ(2u, out.writeHex("\x0A\xFF", 2).bytesWritten());  // those of the last character
    out.writeHex("*v");
    EXPECT_EQ(Str("FE0AFFFE0BCD0AFF2A76"), out.str());
}

TEST(OutStreamTest, WritesNumbersAsText) {
    const std::pair<double, const char*> cases[] = {
        {2.5, "3"}, {-2.7, "-2"}, {0.4, "0"}, {1e300, "2147483647"}, {-INFINITY, "-2147483648"}, {NAN, "0"}};
    for (const auto& [value, text] : cases) {
        MemoryOutStream out;
        out.writeNumber(value, 16);  // in base 10 whatever is asked
        EXPECT_EQ(Str(text), out.str());
    }
    MemoryOutStream out;
    EXPECT_EQ(32u, out.writeInteger(-2147483647 - 1, 2).bytesWritten());
}

TEST(OutStreamTest, ChainsTexts) {
    MemoryOutStream out;
    const OutStream& chained = out << Str("a\0b", 3) << "cd" << 'e' << static_cast<signed char>('f')
                                   << static_cast<unsigned char>(0xFF) << -12;
    EXPECT_EQ(3u, chained.bytesWritten());
    EXPECT_EQ(Str("a\0bcdef\xFF-12", 11), out.str());
}
