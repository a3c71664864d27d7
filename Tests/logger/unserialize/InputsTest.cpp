#include "logger/unserialize/Inputs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

#include "logger/reader/FileLogReader.h"
#include "support/TempDir.h"

class InputsTest : public ::testing::Test {
protected:
    InputsTest() {
        std::filesystem::create_directory(directory_.path("dive"));
        std::filesystem::create_directory(directory_.path("run0000"));
        std::filesystem::current_path(directory_.path(""));
    }
    ~InputsTest() override { std::filesystem::current_path("/"); }

    // The inputs of a specification, a blank between them.
    std::string resolve(const char* specification) {
        settings_.slateFile_ = specification;
        const Inputs inputs(settings_);
        std::string all;
        for (unsigned int i = 0; i < inputs.count(); ++i) all += (i == 0 ? "" : " ") + std::string(inputs.at(i).cStr());
        return all;
    }

    TempDir directory_;
    RunSettings settings_;
};

TEST_F(InputsTest, SpecificationsAreSplitAndResolved) {
    // The specification, its inputs, and what outputs are named after.
    const std::tuple<const char*, const char*, const char*> cases[] = {{"slate", "slate", "slate"},
                                                                       {"slate0000", "slate", "slate0000"},
                                                                       {"0000", "", "0000"},
                                                                       {"a;b", "a b", "a;b"},
                                                                       {"a\nb;c\n", "a b;c", "a\nb;c\n"},
                                                                       {";;a0000;", "a", ";;a0000;"},
                                                                       {"", "", ""},
                                                                       {"dive", "dive/slate", "dive/slate"},
                                                                       {"dive/", "dive/slate", "dive/slate"},
                                                                       {"run0000", "run0000/slate", "run0000/slate"},
                                                                       {"dive;b", "dive/slate b", "dive;b"}};
    for (const auto& [specification, inputs, slateFile] : cases) {
        EXPECT_EQ(inputs, resolve(specification)) << specification;
        EXPECT_STREQ(slateFile, settings_.slateFile_.cStr()) << specification;
    }
}

TEST_F(InputsTest, EveryPartIsCountedOnce) {
    directory_.write("whole", "12345");
    directory_.write("parts0000", "12");
    directory_.write("parts0001", "123");
    directory_.write("parts0003", "1234567");  // after a missing one
    directory_.write("parts0003.bak", "1");
    directory_.write("dive/Courier0002.bak", "12");
    FlexArray<const char*> priorities;
    priorities.push("Courier");
    Log log;
    const Log::Use use(log);
    FileLogReader::SetPriorityList(&priorities);
    settings_.slateFile_ = "whole;parts;missing;dive";
    EXPECT_EQ(19, Inputs(settings_).totalBytes());
}
