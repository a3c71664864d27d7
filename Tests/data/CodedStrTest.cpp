#include "data/CodedStr.h"

#include "Records.h"

static Str NamedFor(size_t length) {
    return (" code=0005 name=\"" + std::string(length, 'x') + "\"\n").c_str();
}

TEST(CodedStrTest, WritesItsRecordAndReadsItBack) {
    const std::string record = RecordOf(CodedStr("Depth", 0x2A));
    EXPECT_EQ(" code=002A name=\"Depth\"\n", record);
    const std::unique_ptr<CodedStr> name = ReadBack<CodedStr>(record.c_str());
    EXPECT_STREQ("Depth", name->cStr());
    EXPECT_EQ(0x2A, name->getCode());
}

// What is wrong with a record that is too long or cut, or that another field stands in.
TEST(CodedStrTest, MalformedRecordsGiveNothing) {
    ExpectNothingOfCut<CodedStr>(NamedFor(3));
    EXPECT_EQ(253u, ReadBack<CodedStr>(NamedFor(253))->length());
    for (const size_t length : {254, 70000}) EXPECT_EQ(nullptr, ReadBack<CodedStr>(NamedFor(length)));
    const char* const records[] = {
        "code=0005 name=\"x\"\n",  " code=005G name=\"x\"\n", " code=+005 name=\"x\"\n", " code= 05 name=\"x\"\n",
        " code=0x05 name=\"x\"\n", " code=0005 Name=\"x\"\n", " code=0005name=\"x\"\n",  " code=0005 name='x'\n",
    };
    for (const char* record : records) EXPECT_EQ(nullptr, ReadBack<CodedStr>(record)) << record;
}
