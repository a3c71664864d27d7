#include <gtest/gtest.h>

#include <climits>
#include <random>

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

TEST(CompactCodeTest, UnsignedShortsInBothDirections) {
    static const struct {
        unsigned short written_;
        const char* hex_;
        unsigned short read_;
        size_t counted_;  // the last read and the encoded length
    } CASES[] = {
        {0, "00", 0, 2},
        {63, "7E", 63, 2},
        {127, "FE", 127, 2},
        {128, "0102", 128, 3},
        {16383, "FDFF", 16383, 3},
        {16384, "030040", 16384, 5},
        {0xBFFF, "03FFBF", 0xBFFF, 5},
        // Written as signed numbers, read as unsigned ones.
        {0xC000, "0100", 0, 3},
        {0xFF7F, "FDFD", 0x3F7F, 3},
        {0xFF80, "00", 0, 2},
        {65535, "FE", 127, 2},
    };
    for (const auto& c : CASES) {
        MemoryOutStream out;
        EXPECT_EQ(Str(c.hex_), (out.writeUShortCompact(c.written_), out.hex())) << c.written_;
        EXPECT_EQ(out.str().length(), out.bytesWritten());
        const Str bytes = out.str();
        MemoryInStream in(bytes);
        unsigned short value = 0;
        EXPECT_EQ(c.counted_, in.readUShortCompact(value).bytesRead()) << c.written_;
        EXPECT_EQ(c.read_, value);
        EXPECT_EQ(bytes.length(), in.getTotalBytesRead());
    }
}

TEST(CompactCodeTest, TheWideFormBringsBackEveryUnsignedShort) {
    static const unsigned short VALUES[] = {0, 0xC000, 0xFF80, 0xFFFF};
    for (const unsigned short value : VALUES) {
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
    static const struct {
        long long value_;
        const char* hex_;
    } CASES[] = {
        {0, "00"},
        {63, "7E"},
        {-64, "80"},
        {64, "0101"},
        {-65, "FDFE"},
        {8191, "FD7F"},
        {8192, "030001"},
        {-8192, "0180"},
        {20, "28"},
        {LLONG_MAX, "FFFFFFFFFFFFFFFF7F"},
        {LLONG_MIN, "FF0000000000000080"},
    };
    for (const auto& c : CASES) {
        EXPECT_EQ(Str(c.hex_), Encoded(c.value_).asHex()) << c.value_;
        EXPECT_EQ(c.value_, Decoded(Encoded(c.value_)));
    }
}

// The greatest number of each length, its successor, and their negative counterparts.
TEST(CompactCodeTest, LongLongsTakeTheShortestFormThatHoldsThem) {
    static const int SIGN_BITS[] = {6, 13, 20, 24, 34, 41, 48, 52};  // by length
    for (size_t length = 1; length <= 8; ++length) {
        const long long past = 1ll << SIGN_BITS[length - 1];
        for (const long long fits : {past - 1, -past}) {
            EXPECT_EQ(length, Encoded(fits).length()) << fits;
            EXPECT_EQ(fits, Decoded(Encoded(fits)));
        }
        for (const long long longer : {past, -past - 1}) {
            EXPECT_EQ(length + 1, Encoded(longer).length()) << longer;
            EXPECT_EQ(longer, Decoded(Encoded(longer)));
        }
    }
}

// Three bits below the sign of the forms of 4 and 8 bytes are not looked at.
TEST(CompactCodeTest, UntestedBitsOfTwoFormsAreTakenForTheSign) {
    EXPECT_EQ(4u, Encoded(1ll << 25).length());
    EXPECT_EQ(1ll << 26, Decoded(Encoded(1ll << 26)));
    EXPECT_EQ(4u, Encoded(134217728).length());
    EXPECT_EQ(-134217728, Decoded(Encoded(134217728)));
    EXPECT_EQ(8u, Encoded(1ll << 53).length());
    EXPECT_EQ(1ll << 54, Decoded(Encoded(1ll << 54)));
    EXPECT_EQ(8u, Encoded(1ll << 55).length());
    EXPECT_EQ(-(1ll << 55), Decoded(Encoded(1ll << 55)));
}

TEST(CompactCodeTest, LongLongsOfEveryMagnitudeReadBack) {
    static const unsigned long long BIT_27 = 1ull << 27, BIT_55 = 1ull << 55;
    std::mt19937_64 random(11);
    for (int i = 0; i < 100000; ++i) {
        const long long value = static_cast<long long>(random()) >> (i % 64);
        const Str bytes = Encoded(value);
        // What the two forms with untested bits do not bring back has another sign in its bit 27 or 55.
        const bool isOdd = (bytes.length() == 4 && ((value & BIT_27) != 0) != (value < 0)) ||
                           (bytes.length() == 8 && ((value & BIT_55) != 0) != (value < 0));
        ASSERT_NE(isOdd, value == Decoded(bytes)) << value;
    }
}

TEST(CompactCodeTest, EveryShorterFormIsTheEndOfData) {
    static const long long VALUES[] = {0, 64, 8192, 1 << 20, 1 << 28, 1ll << 34, 1ll << 41, 1ll << 48, LLONG_MAX};
    for (const long long value : VALUES) {
        const Str full = Encoded(value);
        for (size_t length = 0; length < full.length(); ++length) {
            const Str cut = full.substr(0, length);
            MemoryInStream in(cut);
            long long read = 0;
            EXPECT_TRUE(in.readLongLongCompact(read).eof()) << value << " cut to " << length;
            EXPECT_LT(in.bytesRead(), full.length());
        }
    }
    for (const Str& cut : {Str(), Str("\x01"), Str("\x03"), Str("\x03\x40")}) {
        MemoryInStream in(cut);
        unsigned short read = 0;
        EXPECT_TRUE(in.readUShortCompact(read).eof()) << cut.asHex().cStr();
    }
}
