#include "slatesynth/SynthOptions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

Request Parse(std::vector<std::string> words, SynthOptions& options, Str& error) {
    words.insert(words.begin(), "slatesynth");
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    return ParseArguments(static_cast<int>(argv.size()), argv.data(), options, error);
}

TEST(SynthOptionsTest, TakesEveryOption) {
    SynthOptions options;
    Str error;
    EXPECT_EQ(Request::RUN, Parse({"--seed", "7", "--minutes", "0.5", "--version", "3", "out", "--parts", "2",
                                   "--damage", "9", "--megabytes", "1.5"},
                                  options, error))
        << error.cStr();
    EXPECT_EQ(7u, options.seed_);
    EXPECT_EQ(0.5, options.minutes_);
    EXPECT_EQ(1.5, options.megabytes_);
    EXPECT_EQ(9u, options.damages_);
    EXPECT_STREQ("out", options.output_.cStr());
    EXPECT_EQ(Request::HELP, Parse({"--seed", "7", "--help"}, options, error));
}

TEST(SynthOptionsTest, RefusesWithTheReason) {
    const std::pair<std::vector<std::string>, const char*> refused[] = {
        {{}, "OUT, the name of the log, is missing"},
        {{"a", "b"}, "only one OUT can be written, but 'b' is the second"},
        {{"--sed", "1", "a"}, "there is no option '--sed'"},
        {{"a", "--seed"}, "--seed takes a whole number from 0 to 9007199254740992, not nothing"},
        {{"--minutes", "nan", "a"}, "--minutes takes a number from 0.01 to 2628000, not 'nan'"},
        {{"--version", "2", "a"}, "--version takes a whole number from 3 to 8, not '2'"},
        {{"--damage", "3x", "a"}, "--damage takes a whole number from 0 to 1000000, not '3x'"},
    };
    for (const auto& [words, reason] : refused) {
        SynthOptions options;
        Str error;
        EXPECT_EQ(Request::REFUSE, Parse(words, options, error)) << reason;
        EXPECT_STREQ(reason, error.cStr());
    }
}

}  // namespace
