#include "logger/writer/matlab/MatlabNames.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

TEST(MatlabNamesTest, IdentifiersOfAtMost63Characters) {
    const std::pair<const char*, const char*> cases[] = {{"depth", "depth"},
                                                         {"mass-flow rate", "mass_flow_rate"},
                                                         {"2nd", "x2nd"},
                                                         {"-", "x_"},
                                                         {"", "x"},
                                                         {"t\xC2\xB0\x43", "t_C"},  // a degree sign is one character
                                                         {"bad\xFF\xC2", "bad__"},  // bytes that are none
                                                         {"\xE6\xB7\xB1\xE5\xBA\xA6", "x__"}};
    for (const auto& [text, identifier] : cases) EXPECT_STREQ(identifier, MatlabNames::Identifier(text).cStr()) << text;
    EXPECT_EQ("x" + std::string(62, '7'), MatlabNames::Identifier(std::string(300, '7').c_str()).cStr());
    EXPECT_EQ(std::string(58, 'a') + "_1000", MatlabNames::Numbered(std::string(63, 'a').c_str(), 1000).cStr());
}
