#include "data/StrValue.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/Double.h"
#include "support/MemoryStreams.h"

static Str Written(const StrValue& value, size_t expectedCount) {
    MemoryOutStream out;
    EXPECT_EQ(expectedCount, value.toStream(out));
    return out.str();
}

TEST(StrValueTest, WritesItsLengthAndItsBytesAndReadsAsManyAsItIsTold) {
    StrValue value("hello", Str::NO_POS);
    EXPECT_EQ(Str("\5\0hello", 7), Written(value, 7));
    EXPECT_EQ(Str("\0\0", 2), Written(StrValue(), 2));
    const std::string tooLong(65536 + 2, 'x');  // the length keeps its low 16 bits, and the bytes follow it
    EXPECT_EQ(Str("\2\0xx", 4), Written(StrValue(tooLong.data(), tooLong.size()), 4));
    value.fromBinary("a\0bcd", 4);
    EXPECT_EQ(Str("a\0bc", 4), value.getValue());
    value.fromBinary("wxyz");
    EXPECT_EQ(Str("wxyz"), value.getValue());
    EXPECT_EQ(4u, value.getTypeSize());
}

// But for its bytes, one by one.
TEST(StrValueTest, IsNoNumber) {
    StrValue value("A\xFF", 2);
    Double number(Units::METER, 3, true);
    double read = 0;
    EXPECT_FALSE(value.copyTo(Units::NONE, read));
    EXPECT_TRUE(std::isnan(read));
    EXPECT_FALSE(value.copyTo(number) || number.setFrom(value));
    EXPECT_FALSE(value.setFrom(Units::NONE, 5) || value.setFrom(number));
    EXPECT_FALSE(value.equals(Units::NONE, 12.0));
    EXPECT_EQ(0, value.compare(number));
    EXPECT_TRUE(std::isnan(number.absDiff(&value)));
    value.times(2, &number);
    EXPECT_EQ(3, number.getValue());
    EXPECT_EQ(Str("A\xFF"), value.toString());
    EXPECT_TRUE(value.copyTo(Units::NONE, read, 1));
    EXPECT_EQ(-1, read);
    EXPECT_FALSE(value.copyTo(Units::NONE, read, 2));
    EXPECT_EQ(0, read);
}

TEST(StrValueTest, TextsPassBetweenTexts) {
    const StrValue source("deep", 4);
    StrValue target("deeper", 6);
    EXPECT_EQ(-1, source.compare(target));
    EXPECT_TRUE(target.setFrom(source));
    EXPECT_FALSE(target.setFrom(source));
    EXPECT_TRUE(target.equals(source));
    EXPECT_EQ(4u, target.getTypeSize());
}
