#include "utils/Utf8.h"

#include <gtest/gtest.h>

#include <string>

#define BAD "\xEF\xBF\xBD"

TEST(Utf8Test, LeavesWellFormedTextAlone) {
    static const char* const TEXTS[] = {
        "",
        "depth",
        "\xC2\x80",
        "\xDF\xBF",
        "\xE0\xA0\x80",
        "\xED\x9F\xBF",
        "\xEE\x80\x80",
        "\xEF\xBF\xBF",
        "\xF0\x90\x80\x80",
        "\xF4\x8F\xBF\xBF",
        "35\xC2\xB0N",
    };
    for (const char* text : TEXTS) {
        EXPECT_TRUE(Utf8::IsValid(text)) << text;
        EXPECT_EQ(Str(text), Utf8::Sanitized(text));
    }
    EXPECT_TRUE(Utf8::IsValid(Str("a\0b", 3)));
}

TEST(Utf8Test, ReplacesEachByteThatBeginsNothing) {
    static const struct {
        const char* text_;
        const char* sanitized_;
    } CASES[] = {
        {"a\x80z", "a" BAD "z"},                // a continuation alone
        {"\xC0\xAF", BAD BAD},                  // overlong '/'
        {"\xE0\x9F\xBF", BAD BAD BAD},          // overlong
        {"\xED\xA0\x80", BAD BAD BAD},          // half of a surrogate pair
        {"\xF4\x90\x80\x80", BAD BAD BAD BAD},  // above U+10FFFF
        {"\xF0\x90\x80z", BAD BAD BAD "z"},     // broken off
        {"caf\xC3", "caf" BAD},                 // cut by the end
        {"\xFF\xC3\xA9", BAD "\xC3\xA9"},
    };
    for (const auto& c : CASES) {
        EXPECT_FALSE(Utf8::IsValid(c.text_));
        EXPECT_EQ(Str(c.sanitized_), Utf8::Sanitized(c.text_)) << Str(c.text_).asHex().cStr();
    }
}

TEST(Utf8Test, KeepsNulUnlessToldOtherwise) {
    EXPECT_EQ(Str("a\0" BAD, 5), Utf8::Sanitized(Str("a\0\xFF", 3)));
    EXPECT_EQ(Str("a" BAD BAD), Utf8::Sanitized(Str("a\0\xFF", 3), Utf8::REPLACE_NUL));
    EXPECT_EQ(Str("a" BAD), Utf8::Sanitized(Str("a\0", 2), Utf8::REPLACE_NUL));
}
