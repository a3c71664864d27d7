#include "data/CodedStr.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/MemoryStreams.h"

static std::unique_ptr<CodedStr> ReadBack(const Str& record) {
    MemoryInStream in(record);
    return std::unique_ptr<CodedStr>(CodedStr::Read(in));
}

static Str RecordOf(size_t length, const char* end = "\"\n") {
    return (" code=0005 name=\"" + std::string(length, 'x') + end).c_str();
}

TEST(CodedStrTest, WritesItsRecordAndReadsItBack) {
    MemoryOutStream out;
    EXPECT_EQ(24u, CodedStr("Depth", 0x2A).write(out));
    EXPECT_EQ(" code=002A name=\"Depth\"\n", out.bytes_);

    const std::unique_ptr<CodedStr> name = ReadBack(out.str());
    ASSERT_NE(nullptr, name);
    EXPECT_STREQ("Depth", name->cStr());
    EXPECT_EQ(0x2A, name->getCode());
}

TEST(CodedStrTest, HoldsAtMost253Bytes) {
    ASSERT_NE(nullptr, ReadBack(RecordOf(CodedStr::MAX_NAME_LENGTH)));
    EXPECT_EQ(CodedStr::MAX_NAME_LENGTH, ReadBack(RecordOf(CodedStr::MAX_NAME_LENGTH))->length());
    EXPECT_EQ(nullptr, ReadBack(RecordOf(CodedStr::MAX_NAME_LENGTH + 1)));
    EXPECT_EQ(nullptr, ReadBack(RecordOf(70000)));
}

// What is wrong with a record that is cut, or that another field stands in.
TEST(CodedStrTest, MalformedRecordsGiveNothing) {
    const Str full = RecordOf(3);
    for (size_t length = 0; length < full.length(); ++length) {
        EXPECT_EQ(nullptr, ReadBack(full.substr(0, length))) << length;
    }
    const char* const records[] = {
        "code=0005 name=\"x\"\n",  " code=005G name=\"x\"\n", " code=+005 name=\"x\"\n", " code= 05 name=\"x\"\n",
        " code=0x05 name=\"x\"\n", " code=0005 Name=\"x\"\n", " code=0005name=\"x\"\n",  " code=0005 name='x'\n",
    };
    for (const char* record : records) EXPECT_EQ(nullptr, ReadBack(record)) << record;
}
