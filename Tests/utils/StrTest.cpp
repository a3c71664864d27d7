#include "utils/Str.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

static const size_t ALL_ONES = static_cast<size_t>(-1);

static std::string Text(const Str& s) {
    return std::string(s.data(), s.length());
}

static std::vector<std::string> Pieces(const Str& text, const char* separator) {
    int count = 0;
    const std::unique_ptr<Str[]> pieces(text.split(count, separator));
    std::vector<std::string> result;
    for (int i = 0; i < count; ++i) result.push_back(Text(pieces[static_cast<size_t>(i)]));
    return result;
}

TEST(StrTest, EmptyStringsShareOneTextAndOwnNothing) {
    Str emptied("abc");
    emptied = "";
    const Str none(nullptr);
    EXPECT_EQ(Str::EMPTY_STR.cStr(), emptied.cStr());
    EXPECT_EQ(Str::EMPTY_STR.cStr(), none.cStr());
    EXPECT_EQ(Str::EMPTY_STR.cStr(), Str("abc", 0).cStr());
    EXPECT_EQ(0u, none.length());
}

TEST(StrTest, HoldsAnyByteAndReadsNulPastItsEnd) {
    const Str bytes("a\0b", 3);
    EXPECT_EQ(std::string("a\0b", 3), Text(bytes));
    EXPECT_EQ('\0', bytes[3]);
    EXPECT_EQ('\0', bytes[Str::NO_POS]);
    EXPECT_EQ(std::string(5, '\0'), Text(Str(nullptr, 5)));
}

TEST(StrTest, SetPadsWhatIsNotCopied) {
    Str s;
    s.set("abcdef", 5, 2);
    EXPECT_EQ(std::string("ab\0\0\0", 5), Text(s));
    s.set("abcdef", 3, 9);
    EXPECT_EQ("abc", Text(s));
}

TEST(StrTest, TakesTextThatLiesInsideItself) {
    Str s("depth.meter");
    s.set(s.cStr() + 6);
    EXPECT_EQ("meter", Text(s));
    s.append(s.cStr() + 1, 3);
    EXPECT_EQ("meterete", Text(s));
    s += s;
    EXPECT_EQ("meteretemeterete", Text(s));
    const Str& self = s;
    s = self;
    s.setInside(1, s.cStr(), 4);
    EXPECT_EQ("mmeteetemeterete", Text(s));
}

TEST(StrTest, MovesLeaveBothSidesUsable) {
    Str from("text");
    Str to(std::move(from));
    EXPECT_EQ("text", Text(to));
    from = Str("again");
    EXPECT_EQ("again", Text(from));
}

TEST(StrTest, AppendsEveryKindOfValue) {
    Str s;
    s << true << ' ' << -7 << " " << 1.5 << Str(";") << static_cast<size_t>(9000000000u);
    s.pushBack(0xFF);
    EXPECT_EQ("1 -7 1.500000;9000000000\xFF", Text(s));
    EXPECT_EQ("ab", Text("a" + Str("b")));
    EXPECT_EQ("ab", Text(Str("a") + "b"));
}

TEST(StrTest, ComparesBytesUnsignedAndThenLengths) {
    EXPECT_EQ(-1, Str("ab").compare(Str("abc")));
    EXPECT_EQ(3, Str("abcd").compare(Str("a")));
    EXPECT_EQ(1, Str("b").compare(Str("abc")));
    EXPECT_EQ(1, Str("\x80").compare(Str("a")));
    EXPECT_EQ(0, Str().compare(Str()));
    EXPECT_EQ(-1, Str().compare(Str("a")));
    EXPECT_EQ(1, Str("a").compare(Str()));
}

TEST(StrTest, ComparesWithCStrings) {
    EXPECT_EQ(0, Str("ab").compare("ab"));
    EXPECT_EQ(-1, Str("ab").compare("abc"));
    EXPECT_GT(Str("abc").compare("ab"), 0);
    EXPECT_EQ(0, Str().compare(""));
    EXPECT_EQ(-1, Str().compare("a"));
    EXPECT_EQ(1, Str("a").compare(static_cast<const char*>(nullptr)));
}

TEST(StrTest, PrefixesAndSuffixesIgnoreCase) {
    const Str s("abcdef");
    EXPECT_TRUE(s.startsWith("ABC"));
    EXPECT_TRUE(s.startsWith("abX", 2));
    EXPECT_TRUE(s.startsWith(""));
    EXPECT_TRUE(s.endsWith("DEF"));
    EXPECT_FALSE(s.endsWith("abc"));
    EXPECT_FALSE(s.startsWith("abcdefg"));
    EXPECT_FALSE(s.endsWith("xabcdef"));
}

TEST(StrTest, FindsCharacters) {
    const Str s("abcabc\x80");
    EXPECT_EQ(4u, s.find('b', 2));
    EXPECT_EQ(4u, s.findLastOf('b'));
    EXPECT_EQ(7u, s.findLastOf('\0'));
    EXPECT_EQ(0u, Str().findLastOf('\0'));
}

// Each kind of search has its own answer for what is not there.
TEST(StrTest, TellsWhatIsNotFound) {
    const Str s("abc\x80");
    EXPECT_EQ(4294967295u, s.find('z', 0));
    EXPECT_EQ(Str::NO_POS, s.find('a', 4));
    EXPECT_EQ(Str::NO_POS, s.find('\x80'));
    EXPECT_EQ(Str::NO_POS, s.find("abcd"));
    EXPECT_EQ(Str::NO_POS, s.findLastOf("abcde"));
    EXPECT_EQ(ALL_ONES, s.findLastOf('z'));
    EXPECT_EQ(ALL_ONES, s.findLastOf('\x80'));
    EXPECT_EQ(ALL_ONES, Str().findLastOf('z'));
    EXPECT_EQ(Str::NO_POS, Str::Find("abc", 'a', 0));
    EXPECT_EQ(Str::NO_POS, Str::FindLastOf("abc", 'a', 0));
}

TEST(StrTest, FindsTexts) {
    const Str s("one,two,two");
    EXPECT_EQ(4u, s.find("two"));
    EXPECT_EQ(8u, s.find(Str("two"), 5));
    EXPECT_EQ(8u, s.findLastOf("two"));
    EXPECT_EQ(0u, s.findLastOf(s));
}

TEST(StrTest, SubstringsAreClipped) {
    const Str s("abcdef");
    EXPECT_EQ("cd", Text(s.substr(2, 2)));
    EXPECT_EQ("cdef", Text(s.substr(2)));
    EXPECT_EQ("f", Text(Str(s, 5, 100)));
    EXPECT_EQ("", Text(s.substr(6)));
    EXPECT_EQ("", Text(s.substr(7, 1)));
}

TEST(StrTest, Splits) {
    typedef std::vector<std::string> Strings;
    EXPECT_EQ(Strings({"a", "", "b"}), Pieces("a,,b", ","));
    EXPECT_EQ(Strings({""}), Pieces("", ","));
    EXPECT_EQ(Strings({"", ""}), Pieces(",", ","));
    EXPECT_EQ(Strings({"a", ":b"}), Pieces("a:::b", "::"));
    EXPECT_EQ(Strings({"a,b"}), Pieces("a,b", ""));
}

TEST(StrTest, ChangesInPlaceNeverGrow) {
    Str s("a-b-c");
    s.replaceChar('-', '_');
    EXPECT_TRUE(s.setChar(0, 'A'));
    EXPECT_FALSE(s.setChar(5, 'x'));
    s.setInside(3, "+++", 3);
    s.setInside(5, "+++", 3);
    EXPECT_EQ("A_b++", Text(s));
    s.toUpper();
    EXPECT_EQ("A_B++", Text(s));
    s.toLower();
    EXPECT_EQ("a_b++", Text(s));
}

TEST(StrTest, WritesIntegersInAnyBase) {
    static const struct {
        int value_;
        unsigned int base_;
        const char* text_;
    } CASES[] = {
        {0, 10, "0"},
        {-255, 16, "-FF"},
        {5, 0, "5"},
        {5, 1, "101"},
        {20, 36, "K"},
        {32, 36, "V"},
        {35, 36, "Z"},  // the letters after Q are out of order
        {39, 40, "?"},  // no digit is left
        {INT_MIN, 10, "-2147483648"},
        {INT_MAX, 10, "2147483647"},
    };
    for (const auto& c : CASES) EXPECT_EQ(c.text_, Text(Str(c.value_, c.base_, 0))) << c.value_ << " in " << c.base_;
    EXPECT_EQ("C", Text(Str(2, 10, 10)));
    EXPECT_EQ("FFFFFFFFFFFFFFFF", Text(Str(ALL_ONES, 16)));
}

TEST(StrTest, IntegersStayWithinTheirBuffer) {
    char buf[32];
    EXPECT_EQ(11u, Str::IntToAscii(INT_MIN, buf, 10, sizeof(buf), 0));
    EXPECT_STREQ("-2147483648", buf);
    EXPECT_EQ(2u, Str::IntToAscii(-1234, buf, 10, 3, 0));
    EXPECT_STREQ("34", buf);
    EXPECT_EQ(0u, Str::IntToAscii(7, buf, 10, 1, 0));
    EXPECT_STREQ("", buf);
    buf[0] = '!';
    EXPECT_EQ(0u, Str::IntToAscii(7, buf, 10, 0, 0));
    EXPECT_EQ('!', buf[0]);
}

TEST(StrTest, WritesBytesAsHex) {
    EXPECT_EQ("00FF1A", Text(Str("\x00\xFF\x1A", 3).asHex()));
}

TEST(StrTest, NmeaChecksumsCoverWhatLiesBetweenStartAndStar) {
    EXPECT_TRUE(Str("$GPGLL,5300.97914,N,00259.98174,E,125926,A*28").nmeaValidate());
    EXPECT_TRUE(Str("noise!AB*03").nmeaValidate());
    unsigned char sum = 0;
    EXPECT_TRUE(Str("$AB").nmeaChecksum(sum));
    EXPECT_EQ('A' ^ 'B', sum);
    Str("BC").checksum(sum);
    EXPECT_EQ('A' ^ 'C', sum);
}

TEST(StrTest, NmeaValidateRefusesDamagedSentences) {
    static const char* const SENTENCES[] = {
        "",           "*",     "$AB",     // no star
        "$AB*",       "$AB*0", "$AB*04",  // no, half a and a wrong checksum
        "AB*03",      "*00",              // no start
        "$Aa\x0F*2f",                     // lower-case digits
    };
    for (const char* sentence : SENTENCES) EXPECT_FALSE(Str(sentence).nmeaValidate()) << sentence;
    EXPECT_TRUE(Str("$Aa\x0F*2F").nmeaValidate());
}
