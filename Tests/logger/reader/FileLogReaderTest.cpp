#include "logger/reader/FileLogReader.h"

#include <filesystem>

#include "ReaderFixture.h"

class FileLogReaderTest : public ReaderFixture {
protected:
    void TearDown() override {
        FileLogReader::SetPriorityList(nullptr);
        ReaderFixture::TearDown();
    }
    // Reads the log of that name to its end; why nothing opened.
    std::string readLog(const std::string& name) {
        FileLogReader log(dir_.path(name).c_str(), newReader());
        log.readAll();
        EXPECT_EQ(log.getEntriesRead(), lines_.size());
        return log.getOpenError().cStr();
    }
    std::string write(const std::string& name, const Str& bytes) { return dir_.write(name, stringOf(bytes)); }
    void setPriorities(const std::vector<const char*>& words) {
        for (const char* word : words) priorities_.push(word);
        FileLogReader::SetPriorityList(&priorities_);
    }
    // As if no log had been read.
    void forget() {
        lines_.clear();
        Slate::ClearDirectory();
        DirectoryEntry::CurrentLogVersion_ = 8;
    }
    // Each byte is the header of an access that nobody declared.
    static Str junk(size_t n) { return std::string(n, '\x54').c_str(); }

    // The worked log in three pieces.
    const Str pieces_[3] = {WorkedLogBytes(0, WORKED_LOG_DIRECTORY), WorkedLogBytes(WORKED_LOG_DIRECTORY, 7),
                            WorkedLogBytes(7)};
    FlexArray<const char*> priorities_;
};

// What stands in the directory for the three pieces.
TEST_F(FileLogReaderTest, PartsAreFoundUnderTheirOtherNamesToo) {
    const char* const layouts[][3] = {
        {"slate0000", "slate0001", "slate0002"},
        {"slate0000", "slate0001.bak", "slate0002"},
        {"slate0000", "Courier0001", "Express0002.bak"},
        {"slate0007", "slate0008", "slate0020"},  // holes shorter than twenty numbers
        {"Express0000", "slate0001", "slate0003"},
    };
    setPriorities({"Courier", "Express"});
    for (const auto& layout : layouts) {
        for (int i = 0; i < 3; ++i) write(layout[i], pieces_[i]);
        readLog("slate");
        EXPECT_EQ(lines_, workedLines()) << layout[1];
        forget();
        for (const char* name : layout) std::filesystem::remove(dir_.path(name));
    }
}

TEST_F(FileLogReaderTest, AnEmptyPartGivesWayToItsBackup) {
    write("slate0000", Str());
    write("slate0000.bak", WorkedLogBytes());
    readLog("slate");
    EXPECT_EQ(lines_, workedLines());
}

TEST_F(FileLogReaderTest, ASideFileHasNoPriorityNames) {
    setPriorities({"Courier"});
    write("Courier0000", WorkedLogBytes());
    EXPECT_EQ(readLog("slate.dir"), "No such file or directory");
    EXPECT_EQ(lines_, Lines());
}

TEST_F(FileLogReaderTest, WhatIsNoFileSaysWhy) {
    EXPECT_EQ(readLog("missing"), "No such file or directory");
    std::filesystem::create_directory(dir_.path("folder"));
    EXPECT_EQ(readLog("folder"), "Is a directory");
    write("empty", Str());
    EXPECT_EQ(readLog("empty"), "");
    EXPECT_EQ(lines_, Lines());
}

TEST_F(FileLogReaderTest, DamageOfAnyLengthIsSteppedOverAndReportedOnce) {
    for (const size_t length : {1u, 19u, 20u, 21u, 1000u, 200000u}) {
        const std::string path = write("slate", pieces_[0] + pieces_[1] + junk(length) + pieces_[2]);
        readLog("slate");
        EXPECT_EQ(lines_, workedLines()) << length;
        const Lines messages = errors();
        const size_t shown = std::min<size_t>(length, DamageWatch::MAX_SHOWN);
        ASSERT_EQ(messages.size(), 2 * shown + 1) << length;
        EXPECT_EQ(messages[0], "ERROR No DataAccessor found for code 0x5");
        EXPECT_EQ(messages.back(), "ERROR Skipped " + std::to_string(length) + " bytes of " + path + " from byte 0xC0");
        forget();
    }
}

TEST_F(FileLogReaderTest, DamageUpToTheEndIsReportedToo) {
    const std::string path = write("slate", WorkedLogBytes() + junk(5));
    readLog("slate");
    EXPECT_EQ(lines_, workedLines());
    EXPECT_EQ(errors().back(), "ERROR Skipped 5 bytes of " + path + " from byte 0xCE");
}

TEST_F(FileLogReaderTest, ATornLastEntrySaysWhereItBegan) {
    const Str whole = WorkedLogBytes();
    const std::string path = write("slate", whole.substr(0, whole.length() - 1));
    readLog("slate");
    EXPECT_EQ(errors(), (Lines{"ERROR Encountered eof while reading Run Loop",
                               "ERROR Skipped 5 bytes of " + path + " from byte 0xC8"}));
}

TEST_F(FileLogReaderTest, AnEmptyMessageIsNoDamage) {
    write("slate", pieces_[0] + pieces_[1] + FromHex("0E 52 00") + pieces_[2]);
    readLog("slate");
    EXPECT_EQ(lines_, workedLines());
    EXPECT_EQ(errors(), Lines());
}

// Whatever single byte is damaged, the reader gets to the end.
TEST_F(FileLogReaderTest, EveryDamagedByteLeavesTheReaderMoving) {
    const Str whole = WorkedLogBytes();
    for (size_t at = 0; at < whole.length(); ++at) {
        Str damaged = whole;
        damaged.setChar(at, static_cast<char>(~whole[at]));
        write("slate", damaged);
        readLog("slate");
        forget();
    }
}
