#include "utils/hdf5/Hdf5Writer.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/Hdf5Reader.h"
#include "support/TempDir.h"

namespace {
class Hdf5WriterTest : public testing::Test {
protected:
    TempDir dir_;
    const std::string path_ = dir_.path("file");
};

Hdf5Shape ShapeOf(std::initializer_list<unsigned long long> dims) {
    Hdf5Shape shape;
    for (const unsigned long long dim : dims) shape.dims_[shape.rank_++] = dim;
    return shape;
}

}  // namespace

TEST_F(Hdf5WriterTest, WhatLargeRecordsHoldIsWrittenBeforeItTakesTooMuchRoom) {
    {
        Hdf5Writer writer(path_.c_str(), 0);
        for (int n = 0; n < 20; ++n) {
            for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"}) {
                double* const record = writer.root().addNumberColumn(name, ShapeOf({65535})).addRecord();
                std::fill_n(record, 65535, n);
            }
        }
        EXPECT_TRUE(writer.finalize());
    }
    const std::string shown = Hdf5Reader(path_).show("j");
    EXPECT_EQ("numbers{65535,20}: 0 1 2 3", shown.substr(0, 26));
    EXPECT_EQ(" 18 19", shown.substr(shown.size() - 6));
}

TEST_F(Hdf5WriterTest, DefinitionsAreIdempotent) {
    {
        Hdf5Writer writer(path_.c_str(), 0);
        Hdf5Group& group = writer.root().addGroup("a");
        EXPECT_EQ(&group, &writer.root().addGroup("a"));
        EXPECT_EQ(&group.addNumberColumn("n"), &group.addNumberColumn("n"));
        group.addAtt("text", "first");
        group.addAtt("text", "second");
        group.addAtt("empty", "");
        group.addAtt("umlaut", "\xC3\xA4\xFF");
        EXPECT_TRUE(writer.isOk());
        writer.root().addNumberColumn("a").add(1);
        EXPECT_STREQ("name already exists", writer.status().cStr());
    }
    const Hdf5Reader file(path_);
    EXPECT_EQ("first", file.att("a", "text"));
    EXPECT_EQ("", file.att("a", "empty"));
    EXPECT_EQ("\xC3\xA4\xEF\xBF\xBD (UTF-8)", file.att("a", "umlaut"));
}

// Also when the path has come to stand for another file.
TEST_F(Hdf5WriterTest, TheUserBlockIsWrittenIntoTheFileItself) {
    Hdf5Writer writer(path_.c_str(), 512);
    writer.setUserBlock(Str("header"));
    std::filesystem::rename(path_, dir_.path("moved"));
    dir_.write("file", "another");
    EXPECT_TRUE(writer.finalize());
    EXPECT_EQ("another", dir_.read("file"));
    EXPECT_EQ("header", dir_.read("moved").substr(0, 6));
    EXPECT_TRUE(Hdf5Reader(dir_.path("moved")).isOpen());
}

// The library reads back what it would have written itself, also where chunks are the same again and where one begun
// was written before it was whole.
TEST_F(Hdf5WriterTest, RepeatedAndBrokenChunks) {
    {
        Hdf5Writer writer(path_.c_str(), 0);
        for (const char* name : {"a", "b"}) {
            Hdf5NumberColumn& column = writer.root().addNumberColumn(name, ShapeOf({65536}));
            for (int n = 0; n < 7; ++n) {
                std::fill_n(column.addRecord(), 65536, n == 6 ? 1.5 : n % 2);
                if (n == 2) column.flush();
            }
        }
        EXPECT_TRUE(writer.finalize());
    }
    for (const char* name : {"a", "b"}) {
        const std::string shown = Hdf5Reader(path_).show(name);
        EXPECT_EQ("numbers{65536,7}: 0 1 0 1 0 1 1.5 0 1 0", shown.substr(0, 39));
        EXPECT_EQ(" 0 1 0 1 0 1 1.5", shown.substr(shown.size() - 16));
    }
}

TEST_F(Hdf5WriterTest, MoreItemsThanAreOpenAtOnce) {
    {
        Hdf5Writer writer(path_.c_str(), 0);
        for (int round = 0; round < 2; ++round) {
            for (size_t i = 0; i < 1500; ++i) {
                Hdf5Group& group = writer.root().addGroup(Str(i, 10));
                group.addNumberColumn("n").add(static_cast<double>(i) + 0.5 * round);
                group.addAtt(round == 0 ? "first" : "second", "text");
            }
        }
        EXPECT_TRUE(writer.finalize()) << writer.status().cStr();
    }
    const Hdf5Reader file(path_);
    EXPECT_EQ("numbers{1,2}: 0 0.5", file.show("0/n"));
    EXPECT_EQ("numbers{1,2}: 1499 1499.5", file.show("1499/n"));
    EXPECT_EQ("text text", file.att("7", "first") + " " + file.att("1400", "second"));
}
