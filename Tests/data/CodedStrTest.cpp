#include "data/CodedStr.h"

#include <gtest/gtest.h>

#include <memory>

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

// What is wrong with a record that is too long or cut, or that another field stands in.
TEST(CodedStrTest, MalformedRecordsGiveNothing) {
    const Str full = RecordOf(3);
    for (size_t length = 0; length < full.length(); ++length) {
        EXPECT_EQ(nullptr, ReadBack(full.substr(0, length))) << length;
    }
    ASSERT_NE(nullptr, ReadBack(RecordOf(253)));
    EXPECT_EQ(253u, ReadBack(RecordOf(253))->length());
    EXPECT_EQ(nullptr, ReadBack(RecordOf(254)));
    EXPECT_EQ(nullptr, ReadBack(RecordOf(70000)));
    const char* const records[] = {
        "code=0005 name=\"x\"\n",  " code=005G name=\"x\"\n", " code=+005 name=\"x\"\n", " code= 05 name=\"x\"\n",
        " code=0x05 name=\"x\"\n", " code=0005 Name=\"x\"\n", " code=0005name=\"x\"\n",  " code=0005 name='x'\n",
    };
    for (const char* record : records) EXPECT_EQ(nullptr, ReadBack(record)) << record;
}
