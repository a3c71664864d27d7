#include "utils/Str.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>
#include <tuple>
#include <utility>

static const size_t ALL_ONES = static_cast<size_t>(-1);

static std::string Text(const Str& s) {
    return std::string(s.data(), s.length());
}

static std::string Pieces(const Str& text, const char* separator) {
    int count = 0;
    const std::unique_ptr<Str[]> pieces(text.split(count, separator));
    std::string joined;
    for (int i = 0; i < count; ++i) joined += Text(pieces[static_cast<size_t>(i)]) + '|';
    return joined;
}

TEST(StrTest, HoldsAnyByteAndReadsNulPastItsEnd) {
    const Str bytes("a\0b", 3);
    EXPECT_EQ(std::string("a\0b", 3), Text(bytes));
    EXPECT_EQ('\0', bytes[Str::NO_POS]);
    EXPECT_EQ("b", Text(Str(bytes, 2, 100)));
    EXPECT_EQ("", Text(bytes.substr(7, 1)));
    Str s;
    s.set("abcdef", 5, 2);
    EXPECT_EQ(std::string("ab\0\0\0", 5), Text(s));
    s = "";
    EXPECT_EQ(Str::EMPTY_STR.cStr(), s.cStr());  // the empty text is shared
    EXPECT_EQ(Str::EMPTY_STR.cStr(), Str(nullptr).cStr());
}

TEST(StrTest, TakesTextThatLiesInsideItselfAndMoves) {
    Str s("depth.meter");
    s.set(s.cStr() + 6);
    s.append(s.cStr() + 1, 3);
    EXPECT_EQ("meterete", Text(s));
    s += s;
    const Str& self = s;
    s = self;
    s.setInside(1, s.cStr(), 4);
    const Str moved(std::move(s));
    EXPECT_EQ("mmeteetemeterete", Text(moved));
    s = Str("again");
    EXPECT_EQ("again", Text(s));
}

TEST(StrTest, AppendsEveryKindOfValue) {
    Str s;
    s << true << ' ' << -7 << " " << 1.5 << Str(";") << static_cast<size_t>(9000000000u);
    s.pushBack(0xFF);
    EXPECT_EQ("1 -7 1.500000;9000000000\xFF", Text(s));
}

TEST(StrTest, ComparesBytesUnsignedAndThenLengths) {
    const std::tuple<const char*, const char*, int> rows[] = {{"ab", "abc", -1}, {"abcd", "a", 3}, {"b", "abc", 1},
                                                              {"\x80", "a", 1},  {"", "", 0},      {"", "a", -1}};
    for (const auto& [a, b, order] : rows) EXPECT_EQ(order, Str(a).compare(Str(b))) << a << ' ' << b;
    EXPECT_EQ(-1, Str("ab").compare("abc"));
    EXPECT_GT(Str("abc").compare("ab"), 0);
    EXPECT_EQ(1, Str("a").compare(static_cast<const char*>(nullptr)));
}

TEST(StrTest, PrefixesAndSuffixesIgnoreCase) {
    const Str s("abcdef");
    EXPECT_TRUE(s.startsWith("ABC"));
    EXPECT_TRUE(s.startsWith("abX", 2));
    EXPECT_TRUE(s.endsWith("DEF"));
    EXPECT_FALSE(s.startsWith("abcdefg"));
}

// Each kind of search has its own answer for what is not there.
TEST(StrTest, Finds) {
    const Str s("one,two,two\x80");
    EXPECT_EQ(6u, s.find('o', 1));
    EXPECT_EQ(10u, s.findLastOf('o'));
    EXPECT_EQ(12u, s.findLastOf('\0'));
    EXPECT_EQ(8u, s.find(Str("two"), 5));
    EXPECT_EQ(8u, s.findLastOf("two"));
    EXPECT_EQ(4294967295u, s.find('z', 0));
    EXPECT_EQ(Str::NO_POS, s.find('\x80'));
    EXPECT_EQ(ALL_ONES, s.findLastOf('z'));
    EXPECT_EQ(ALL_ONES, s.findLastOf('\x80'));
    EXPECT_EQ(Str::NO_POS, Str::Find("abc", 'a', 0));
}

TEST(StrTest, Splits) {
    EXPECT_EQ("a||b|", Pieces("a,,b", ","));
    EXPECT_EQ("|", Pieces("", ","));
    EXPECT_EQ("a|:b|", Pieces("a:::b", "::"));
    EXPECT_EQ("a,b|", Pieces("a,b", ""));
}

TEST(StrTest, ChangesInPlaceNeverGrow) {
    Str s("a-b-c");
    s.replaceChar('-', '_');
    EXPECT_FALSE(s.setChar(5, 'x'));
    s.setInside(3, "+++", 3);
    s.setInside(5, "+++", 3);
    s.toUpper();
    EXPECT_EQ("A_B++", Text(s));
}

// The letters after Q are out of order, and base 40 has no digit left.
TEST(StrTest, WritesIntegersInAnyBaseWithinTheirBuffer) {
    const std::tuple<int, unsigned int, const char*> rows[] = {
        {0, 10, "0"},  {-255, 16, "-FF"}, {5, 0, "5"},
        {5, 1, "101"}, {20, 36, "K"},     {32, 36, "V"},
        {35, 36, "Z"}, {39, 40, "?"},     {INT_MIN, 10, "-2147483648"}};
    for (const auto& [value, base, text] : rows) EXPECT_EQ(text, Text(Str(value, base, 0))) << value << " in " << base;
    EXPECT_EQ("C", Text(Str(2, 10, 10)));
    EXPECT_EQ("FFFFFFFFFFFFFFFF", Text(Str(ALL_ONES, 16)));
    char buf[] = "!!!";
    EXPECT_EQ(0u, Str::IntToAscii(7, buf, 10, 0, 0));
    EXPECT_STREQ("!!!", buf);
    EXPECT_EQ(2u, Str::IntToAscii(-1234, buf, 10, 3, 0));
    EXPECT_STREQ("34", buf);
}

TEST(StrTest, NmeaChecksumsCoverWhatLiesBetweenStartAndStar) {
    EXPECT_TRUE(Str("$GPGLL,5300.97914,N,00259.98174,E,125926,A*28").nmeaValidate());
    EXPECT_TRUE(Str("noise!AB*03").nmeaValidate());
    unsigned char sum = 0;
    EXPECT_TRUE(Str("$AB").nmeaChecksum(sum));
    Str("BC").checksum(sum);
    EXPECT_EQ('A' ^ 'C', sum);
    EXPECT_TRUE(Str("$Aa\x0F*2F").nmeaValidate());
    // No star; no, half a and a wrong checksum; no start; lower-case digits.
    for (const char* sentence : {"", "*", "$AB", "$AB*", "$AB*0", "$AB*04", "AB*03", "*00", "$Aa\x0F*2f"})
        EXPECT_FALSE(Str(sentence).nmeaValidate()) << sentence;
}
