#include "logger/unserialize/Inputs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/TempDir.h"

namespace {

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

}  // namespace

TEST_F(InputsTest, SpecificationsAreSplitAndResolved) {
    const struct {
        const char* specification_;
        const char* inputs_;
        const char* slateFile_;  // what outputs are named after
    } cases[] = {
        {"slate", "slate", "slate"},
        {"slate0000", "slate", "slate0000"},
        {"0000", "", "0000"},
        {"a;b", "a b", "a;b"},
        {"a\nb;c\n", "a b;c", "a\nb;c\n"},
        {";;a0000;", "a", ";;a0000;"},
        {"", "", ""},
        {"dive", "dive/slate", "dive/slate"},
        {"dive/", "dive/slate", "dive/slate"},
        {"run0000", "run0000/slate", "run0000/slate"},
        {"dive;b", "dive/slate b", "dive;b"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.inputs_, resolve(c.specification_)) << c.specification_;
        EXPECT_STREQ(c.slateFile_, settings_.slateFile_.cStr()) << c.specification_;
    }
}

TEST_F(InputsTest, BytesOfFilesAndOfNumberedParts) {
    directory_.write("whole", "12345");
    directory_.write("parts0000", "12");
    directory_.write("parts0001", "123");
    directory_.write("parts0003", "1234567");  // after a missing one
    settings_.slateFile_ = "whole;parts;missing;dive";
    EXPECT_EQ(10, Inputs(settings_).totalBytes());
}

TEST_F(InputsTest, AFileIsAnInputUnderAnyName) {
    directory_.write("whole", "12345");
    directory_.write("parts0000", "12");
    std::filesystem::create_symlink("whole", "link");
    settings_.slateFile_ = "whole;parts";
    const Inputs inputs(settings_);
    for (const char* const path : {"whole", "./whole", "link", "parts0000"}) EXPECT_TRUE(inputs.contains(path)) << path;
    for (const char* const path : {"parts", "other", "dive"}) EXPECT_FALSE(inputs.contains(path)) << path;
}
