#include "logger/entry/DirectoryEntry.h"

#include <tuple>

#include "EntryFixture.h"

typedef EntryFixture DirectoryEntryTest;

TEST_F(DirectoryEntryTest, ARecordReadAgainGivesTheRegisteredItem) {
    const Str bytes = WORKED_LOG[2].toBytes();
    const auto first = read<DirectoryEntry>(bytes);
    EXPECT_EQ(first->getTimestamp(), Timestamp::NOT_SET_TIME);
    EXPECT_TRUE(first->wasRead());
    const unsigned int known = slate_.getElementURIs().size();
    const auto second = read(bytes);
    ASSERT_NE(second, nullptr);
    EXPECT_STREQ(second->toString(nullptr).cStr(), first->toString(nullptr).cStr());
    EXPECT_EQ(slate_.getElementURIs().size(), known);
}

TEST_F(DirectoryEntryTest, ACodeThatIsTakenRefusesTheRecordSilently) {
    readDirectory();
    EXPECT_EQ(read(FromHex("2A") + Str("n code=0000 name=\"Other\"\n")), nullptr);
    EXPECT_EQ(log_.take(), Lines());
    EXPECT_FALSE(error_);
    EXPECT_STREQ(Slate::GetName(0)->cStr(), "Depth");
}

TEST_F(DirectoryEntryTest, AWrongHeaderIsAnErrorButTheRecordIsRegistered) {
    read(FromHex("0A") + Str("n code=0003 name=\"Late\"\n"));  // header 5
    EXPECT_TRUE(error_);
    EXPECT_EQ(log_.take(), Lines{"ERROR Invalid directory entry starting with code 0x5 at byte 0x1"});
    ASSERT_NE(Slate::GetName(3), nullptr);
    EXPECT_STREQ(Slate::GetName(3)->cStr(), "Late");
}

TEST_F(DirectoryEntryTest, TheVersionRulesWhatFollowsAndWhatLaterLogsMayBe) {
    const std::tuple<const char*, unsigned short, Lines> cases[] = {
        {"v 0002\n", 8, {"DEBUG Got version 2 from memory", "CRITICAL Can only unserialize verisions 3 through 8"}},
        {"v 0009\n", 8, {"DEBUG Got version 9 from memory", "CRITICAL Can only unserialize verisions 3 through 8"}},
        {"v FFFF\n", 8, {"DEBUG Got version -1 from memory", "CRITICAL Can only unserialize verisions 3 through 8"}},
        {"v 0005\n", 5, {"DEBUG Got version 5 from memory"}},
        {"v 0008\n", 5, {"DEBUG Got version 8 from memory", "CRITICAL Can only unserialize verisions 3 through 5"}},
        {"v 0003\n", 3, {"DEBUG Got version 3 from memory"}}};
    for (const auto& [record, inForce, messages] : cases) {
        readRecord(record);
        EXPECT_EQ(log_.take(), messages);
        EXPECT_EQ(DirectoryEntry::GetCurrentLogVersion(), inForce);
    }
    EXPECT_EQ(DirectoryEntry(short(0)).getVersion(), 3);  // the one in force
}

TEST_F(DirectoryEntryTest, MalformedRecordsAreRefusedWithTheirMessage) {
    const std::pair<const char*, Lines> cases[] = {
        {"", {"ERROR Failed to read directory type."}},
        {"a code=000", {"ERROR Encountered error while reading dataAccess"}},
        {"e code=0000 elementURL=\"\"", {"ERROR Encountered error while reading element"}},
        {"n code=00G0 name=\"x\"\n", {"ERROR Encountered error while reading name"}},
        {"v0008\n", {"ERROR Missing space reading directory version"}},
        {"v 000", {"ERROR Encountered eof while reading directory version"}},
        {"v 0008 ", {"ERROR Missing newline reading directory version"}},
        {"x", {}},
    };
    for (const auto& [record, messages] : cases) {
        EXPECT_EQ(read(FromHex("2A") + Str(record)), nullptr) << record;
        EXPECT_EQ(log_.take(), messages);
        EXPECT_FALSE(error_);
    }
}
