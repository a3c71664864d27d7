#include "logger/writer/MatlabNames.h"

#include <gtest/gtest.h>

#include <string>

TEST(MatlabNamesTest, Identifiers) {
    static const struct {
        const char* text_;
        const char* identifier_;
    } CASES[] = {
        {"depth", "depth"},
        {"mass-flow rate", "mass_flow_rate"},
        {"2nd", "x2nd"},
        {"-", "x_"},
        {"", "x"},
        {"t\xC2\xB0\x43", "t_C"},  // a degree sign is one character
        {"bad\xFF\xC2", "bad__"},  // bytes that are none
        {"\xE6\xB7\xB1\xE5\xBA\xA6", "x__"},
    };
    for (const auto& c : CASES) EXPECT_STREQ(c.identifier_, MatlabNames::Identifier(c.text_).cStr()) << c.text_;
}

TEST(MatlabNamesTest, LongTextsAreCut) {
    const std::string sixty(60, 'a');
    const auto identifier = [](const std::string& text) { return MatlabNames::Identifier(text.c_str()); };
    EXPECT_EQ(sixty + "bcd", identifier(sixty + "bcde").cStr());
    EXPECT_EQ("x" + std::string(62, '7'), identifier(std::string(300, '7')).cStr());
    EXPECT_EQ(std::string(58, 'a') + "_1000", MatlabNames::Numbered(std::string(63, 'a').c_str(), 1000).cStr());
}
