#include "utils/Utf8.h"

#include <gtest/gtest.h>

#include <utility>

#define BAD "\xEF\xBF\xBD"

TEST(Utf8Test, LeavesWellFormedTextAlone) {
    for (const Str& text : {Str(), Str("35\xC2\xB0N"), Str("\xC2\x80\xDF\xBF"), Str("\xE0\xA0\x80\xED\x9F\xBF"),
                            Str("\xEE\x80\x80\xEF\xBF\xBF"), Str("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), Str("a\0b", 3)}) {
        EXPECT_TRUE(Utf8::IsValid(text)) << text.cStr();
        EXPECT_EQ(text, Utf8::Sanitized(text));
    }
}

TEST(Utf8Test, ReplacesEachByteThatBeginsNothing) {
    const std::pair<const char*, const char*> cases[] = {
        {"a\x80z", "a" BAD "z"},                // a continuation alone
        {"\xC0\xAF", BAD BAD},                  // overlong '/'
        {"\xE0\x9F\xBF", BAD BAD BAD},          // overlong
        {"\xED\xA0\x80", BAD BAD BAD},          // half of a surrogate pair
        {"\xF4\x90\x80\x80", BAD BAD BAD BAD},  // above U+10FFFF
        {"\xF0\x90\x80z", BAD BAD BAD "z"},     // broken off
        {"caf\xC3", "caf" BAD},                 // cut by the end
        {"\xFF\xC3\xA9", BAD "\xC3\xA9"},
    };
    for (const auto& [text, sanitized] : cases) {
        EXPECT_FALSE(Utf8::IsValid(text));
        EXPECT_EQ(Str(sanitized), Utf8::Sanitized(text)) << Str(text).asHex().cStr();
    }
}

TEST(Utf8Test, KeepsNulUnlessToldOtherwise) {
    EXPECT_EQ(Str("a\0" BAD, 5), Utf8::Sanitized(Str("a\0\xFF", 3)));
    EXPECT_EQ(Str("a" BAD BAD), Utf8::Sanitized(Str("a\0\xFF", 3), Utf8::REPLACE_NUL));
}
