#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <tuple>
#include <utility>

#include "support/MemoryStreams.h"

static Str Encoded(long long value) {
    MemoryOutStream out;
    out.writeLongLongCompact(value);
    EXPECT_EQ(out.str().length(), out.bytesWritten());
    return out.str();
}

static long long Decoded(const Str& bytes) {
    MemoryInStream in(bytes);
    long long value = 0;
    in.readLongLongCompact(value);
    EXPECT_EQ(bytes.length(), in.getTotalBytesRead());
    EXPECT_FALSE(in.eof());
    return value;
}

// From 0xC000 on they are written as signed numbers and read as unsigned ones. What is counted is the last read, and
// the encoded length.
TEST(CompactCodeTest, UnsignedShortsInBothDirections) {
    typedef std::tuple<unsigned short, const char*, unsigned short, size_t> Case;
    const Case cases[] = {{0, "00", 0, 2},
                          {63, "7E", 63, 2},
                          {127, "FE", 127, 2},
                          {128, "0102", 128, 3},
                          {16383, "FDFF", 16383, 3},
                          {16384, "030040", 16384, 5},
                          {0xBFFF, "03FFBF", 0xBFFF, 5},
                          {0xC000, "0100", 0, 3},
                          {0xFF7F, "FDFD", 0x3F7F, 3},
                          {0xFF80, "00", 0, 2},
                          {65535, "FE", 127, 2}};
    for (const auto& [written, hex, read, counted] : cases) {
        MemoryOutStream out;
        EXPECT_EQ(Str(hex), (out.writeUShortCompact(written), out.hex())) << written;
        EXPECT_EQ(out.str().length(), out.bytesWritten());
        const Str bytes = out.str();
        MemoryInStream in(bytes);
        unsigned short value = 0;
        EXPECT_EQ(counted, in.readUShortCompact(value).bytesRead()) << written;
        EXPECT_EQ(read, value);
    }
}

TEST(CompactCodeTest, TheWideFormBringsBackEveryUnsignedShort) {
    for (const int number : {0, 0xC000, 0xFF80, 0xFFFF}) {
        const unsigned short value = static_cast<unsigned short>(number);
        MemoryOutStream out;
        EXPECT_EQ(3u, out.writeUShortWide(value).bytesWritten());
        const Str bytes = out.str();
        MemoryInStream in(bytes);
        unsigned short read = 1;
        in.readUShortCompact(read);
        EXPECT_EQ(value, read);
    }
}

TEST(CompactCodeTest, LongLongsInTheLogsBytes) {
    typedef std::pair<long long, const char*> Case;
    const Case cases[] = {{0, "00"},
                          {63, "7E"},
                          {-64, "80"},
                          {64, "0101"},
                          {-65, "FDFE"},
                          {8191, "FD7F"},
                          {8192, "030001"},
                          {-8192, "0180"},
                          {20, "28"},
                          {LLONG_MAX, "FFFFFFFFFFFFFFFF7F"},
                          {LLONG_MIN, "FF0000000000000080"}};
    for (const auto& [value, hex] : cases) EXPECT_EQ(Str(hex), Encoded(value).asHex()) << value;
}

// The greatest number of each length, its successor, and their negative counterparts.
TEST(CompactCodeTest, LongLongsTakeTheShortestFormThatHoldsThem) {
    size_t length = 0;
    for (const int signBit : {6, 13, 20, 24, 34, 41, 48, 52}) {
        const long long past = 1ll << signBit;
        ++length;
        for (const long long fits : {past - 1, -past}) EXPECT_EQ(length, Encoded(fits).length()) << fits;
        for (const long long longer : {past, -past - 1}) EXPECT_EQ(length + 1, Encoded(longer).length()) << longer;
    }
}

TEST(CompactCodeTest, LongLongsOfEveryMagnitudeReadBack) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 100000; ++i) {
        const long long value = static_cast<long long>(random()) >> (i % 64);
        const Str bytes = Encoded(value);
        // The forms of 4 and 8 bytes do not look at three bits below their sign: they may bring back another sign.
        const bool hasUntested = bytes.length() == 4 || bytes.length() == 8;
        const int signBit = bytes.length() == 4 ? 27 : 55;
        const bool isOdd = hasUntested && ((value >> signBit & 1) != 0) != (value < 0);
        ASSERT_NE(isOdd, value == Decoded(bytes)) << value;
    }
}

TEST(CompactCodeTest, EveryShorterFormIsTheEndOfData) {
    for (const int shift : {0, 6, 13, 20, 28, 34, 41, 48, 62}) {
        const Str full = Encoded(1ll << shift);
        for (size_t length = 0; length < full.length(); ++length) {
            const Str cut = full.substr(0, length);
            MemoryInStream in(cut);
            long long read = 0;
            EXPECT_TRUE(in.readLongLongCompact(read).eof()) << shift << " cut to " << length;
            EXPECT_LT(in.bytesRead(), full.length());
        }
    }
    for (const Str& cut : {Str(), Str("\x01"), Str("\x03"), Str("\x03\x40")}) {
        MemoryInStream in(cut);
        unsigned short read = 0;
        EXPECT_TRUE(in.readUShortCompact(read).eof()) << cut.asHex().cStr();
    }
}
