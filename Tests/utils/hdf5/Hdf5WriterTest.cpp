#include "utils/hdf5/Hdf5Writer.h"

#include <gtest/gtest.h>

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

// A file with everything in it, over several blocks.
void WriteAll(const std::string& path, int records) {
    Hdf5Writer writer(path.c_str(), 0);
    Hdf5Group& group = writer.root().addGroup("a").addGroup("b");
    group.addAtt("name", "a.b");
    Hdf5NumberColumn& cube = group.addNumberColumn("cube", ShapeOf({2, 3, 2}));
    const uint16_t word[] = {'h', 'i'};
    const uint64_t reference = group.addArray("word", ShapeOf({2}), word).reference();
    for (int n = 0; n < records; ++n) {
        double* const record = cube.addRecord();
        for (int i = 0; i < 12; ++i) record[i] = n + 0.01 * i;
        group.addNumberColumn("row").add(n);
        group.addTextColumn("texts").add(n % 2 == 0 ? "even" : "");
        group.addReferenceColumn("references").add(reference);
    }
    EXPECT_TRUE(writer.finalize()) << writer.status().cStr();
}
}  // namespace

TEST_F(Hdf5WriterTest, ColumnsGrowAlongTheirLastDimension) {
    WriteAll(path_, 2);
    const Hdf5Reader file(path_);
    EXPECT_EQ("numbers{1,2}: 0 1", file.show("a/b/row"));
    EXPECT_EQ(
        "numbers{2,3,2,2}: 0 1 0.01 1.01 0.02 1.02 0.03 1.03 0.04 1.04 0.05 1.05 0.06 1.06 0.07 1.07 0.08 1.08 0.09 "
        "1.09 0.1 1.1 0.11 1.11",
        file.show("a/b/cube"));
    EXPECT_EQ("texts{1,2}: even||", file.show("a/b/texts"));
    EXPECT_EQ("references{1,2}: [numbers{2}: hi] [numbers{2}: hi]", file.show("a/b/references"));
    EXPECT_EQ("a.b", file.att("a/b", "name"));
}

TEST_F(Hdf5WriterTest, BlocksOfRecordsJoin) {
    WriteAll(path_, 2500);
    std::string row = "numbers{1,2500}:";
    for (int n = 0; n < 2500; ++n) row += " " + std::to_string(n);
    const Hdf5Reader file(path_);
    EXPECT_EQ(row, file.show("a/b/row"));
    const std::string cube = file.show("a/b/cube");
    EXPECT_EQ("2499.11", cube.substr(cube.rfind(' ') + 1));
}

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
