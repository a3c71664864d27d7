#include "io/LzmaEncoder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "support/Command.h"
#include "support/FileSizeLimit.h"
#include "support/TempDir.h"

class LzmaEncoderTest : public testing::Test {
protected:
    std::string decoded(const std::string& name) { return OutputOf("xz --format=lzma -dc " + dir_.path(name)); }

    TempDir dir_;
    LzmaEncoder encoder_;
};

TEST_F(LzmaEncoderTest, OtherReadersDecodeFilesOfAnySize) {
    const std::string header("\x5D\x00\x00\x04\x00\x05\x00\x00\x00\x00\x00\x00\x00", 13);
    EXPECT_FALSE(encoder_.encode(dir_.write("a", "hello").c_str(), dir_.path("b").c_str(), nullptr));
    EXPECT_EQ(header, dir_.read("b").substr(0, 13));
    for (const size_t size : {0, 1, 262144, 786433}) {  // around the dictionary's size
        std::string bytes;
        for (unsigned int i = 0; bytes.size() < size; ++i) bytes += static_cast<char>(i * i >> 7);
        EXPECT_FALSE(encoder_.encode(dir_.write("a", bytes).c_str(), dir_.path("b").c_str(), dir_.path("c").c_str()));
        EXPECT_TRUE(bytes == decoded("b")) << size;
        EXPECT_TRUE(bytes == dir_.read("c")) << size;
    }
}

TEST_F(LzmaEncoderTest, WhatCannotBeOpenedIsLeftAlone) {
    EXPECT_FALSE(encoder_.encode(dir_.path("missing").c_str(), nullptr, nullptr));
    EXPECT_FALSE(dir_.has("missing.lzma"));
    EXPECT_FALSE(encoder_.encode(dir_.write("a", "x").c_str(), dir_.path("missing/b").c_str(), nullptr));
    EXPECT_EQ("x", dir_.read("a"));
}

TEST_F(LzmaEncoderTest, AFullDiskLeavesTheFileAndWhatWasEncodedBefore) {
    signal(SIGXFSZ, SIG_IGN);
    std::string bytes;
    for (unsigned int i = 0; i < 100000; ++i) bytes += static_cast<char>(i * i >> 7);
    const std::string before = dir_.write("a.lzma", "before");
    for (const size_t size : {5, 100000}) {  // noticed when the output is closed, and before
        dir_.write("a", bytes.substr(0, size));
        const FileSizeLimit limit(10);
        EXPECT_TRUE(encoder_.encode(dir_.path("a").c_str(), nullptr, nullptr));
        EXPECT_EQ(bytes.substr(0, size), dir_.read("a"));
        EXPECT_EQ("before", dir_.read("a.lzma"));
    }
    std::filesystem::remove(before);
    std::filesystem::remove(dir_.path("a"));
    EXPECT_TRUE(std::filesystem::is_empty(dir_.path("")));
    signal(SIGXFSZ, SIG_DFL);
}
