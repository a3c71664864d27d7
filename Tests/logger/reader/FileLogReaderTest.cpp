#include "logger/reader/FileLogReader.h"

#include <filesystem>

#include "ReaderFixture.h"

class FileLogReaderTest : public ReaderFixture {
protected:
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
        slate_.version() = LogVersion::NEWEST;
    }
    // Each byte is the header of an access that nobody declared.
    static Str junk(size_t n) { return std::string(n, '\x54').c_str(); }

    // The worked log in three pieces.
    const Str pieces_[3] = {WorkedLogBytes(0, WORKED_LOG_DIRECTORY), WorkedLogBytes(WORKED_LOG_DIRECTORY, 7),
                            WorkedLogBytes(7)};
    // What is said of damage at the end of a file.
    static std::string summary(const std::string& path, size_t stretches, size_t bytes, size_t entries,
                               size_t jumps = 0, size_t standing = 0) {
        return "ERROR Damage in " + path + ": stretches skipped " + std::to_string(stretches) + ", bytes in them " +
               std::to_string(bytes) + ", entries decoded since the damage began " + std::to_string(entries) +
               ", cycles whose time went back or jumped by more than an hour " + std::to_string(jumps) +
               ", cycle starts that stand at one time " + std::to_string(standing);
    }
    static std::string skipped(const std::string& path, size_t bytes, const char* from) {
        return "ERROR Skipped " + std::to_string(bytes) + " bytes of " + path + " from byte 0x" + from;
    }

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

// This one is a file whose first byte cannot be read.
TEST_F(FileLogReaderTest, WhatCannotBeReadIsNotDecoded) {
    FileLogReader log("/proc/self/mem", newReader());
    log.readAll();
    EXPECT_EQ(errors(), Lines{"ERROR Cannot read /proc/self/mem: Input/output error"});
}

TEST_F(FileLogReaderTest, DamageOfAnyLengthIsSteppedOverAndReportedOnce) {
    for (const size_t length : {1u, 19u, 20u, 21u, 1000u, 200000u}) {
        const std::string path = write("slate", pieces_[0] + pieces_[1] + junk(length) + pieces_[2]);
        readLog("slate");
        EXPECT_EQ(lines_, workedLines()) << length;
        const Lines messages = errors();
        const size_t shown = std::min<size_t>(length, DamageWatch::MAX_SHOWN);
        ASSERT_EQ(messages.size(), 2 * shown + 2) << length;
        EXPECT_EQ(messages[0], "ERROR No DataAccessor found for code 0x5");
        EXPECT_EQ(messages[2 * shown], skipped(path, length, "C0"));
        EXPECT_EQ(messages.back(), summary(path, 1, length, 2));
        forget();
    }
}

// Only attempts that failed lose their messages.
TEST_F(FileLogReaderTest, TheEntryThatEndsDamageKeepsItsMessages) {
    const std::string path = write("slate", pieces_[0] + junk(50) + FromHex("2A") + Str("v 0009\n") + pieces_[1]);
    readLog("slate");
    const Lines messages = errors();
    ASSERT_LT(3u, messages.size());
    EXPECT_EQ(Lines(messages.end() - 3, messages.end()),
              (Lines{skipped(path, 50, "AD"), "CRITICAL Can only unserialize verisions 3 through 8",
                     summary(path, 1, 50, 4)}));
}

TEST_F(FileLogReaderTest, WhatIsWorseThanAnErrorIsCountedToo) {
    Str log = pieces_[0] + junk(10);
    for (int i = 0; i < 100; ++i) log += FromHex("2A") + Str("v 0009\n");
    const std::string path = write("slate", log);
    readLog("slate");
    const Lines messages = errors();
    const std::string critical = "CRITICAL Can only unserialize verisions 3 through 8";
    EXPECT_EQ(MessageGate::MAX_WORSE, std::count(messages.begin(), messages.end(), critical));
    EXPECT_EQ(messages.back(), summary(path, 1, 10, 100) + ", messages not shown 97");
}

// It says nothing itself, whether it stands alone or begins a stretch.
TEST_F(FileLogReaderTest, ADirectoryRecordOfUnknownKindIsDamage) {
    for (const size_t junkLength : {0u, 3u}) {
        const std::string path =
            write("slate", pieces_[0] + pieces_[1] + FromHex("2A 7A") + junk(junkLength) + pieces_[2]);
        readLog("slate");
        EXPECT_EQ(lines_, workedLines());
        const Lines messages = errors();
        ASSERT_EQ(messages.size(), 2 * junkLength + 2);
        EXPECT_EQ(messages[2 * junkLength], skipped(path, 2 + junkLength, "C0"));
        EXPECT_EQ(messages.back(), summary(path, 1, 2 + junkLength, 2));
        forget();
    }
}

// Zeros are cycle starts of 1970.
TEST_F(FileLogReaderTest, ZerosDoNotPassInSilence) {
    const std::string path = write("slate", pieces_[0] + pieces_[1] + Str(nullptr, 65536) + WorkedLogBytes(4));
    readLog("slate");
    EXPECT_EQ(errors(), Lines{summary(path, 0, 0, 8192 + 5, 2, 8192)});
}

// The clock of the vehicle may jump: that alone is no damage.
TEST_F(FileLogReaderTest, CyclesAreCountedOfDamagedFilesOnly) {
    const Str laterCycle = FromHex("00 80 1A 86 5C 8C FC 04");  // 4096 s later
    const Str jumping = WorkedLogBytes() + laterCycle + pieces_[1];
    write("slate", jumping);
    readLog("slate");
    EXPECT_EQ(errors(), Lines());
    forget();
    const std::string path = write("slate", jumping + junk(1));
    readLog("slate");
    EXPECT_EQ(errors().back(), summary(path, 1, 1, 0, 2));
}

TEST_F(FileLogReaderTest, PartsThatAreLackingAreNamed) {
    write("slate0001", pieces_[0]);
    write("slate0003", Str());
    std::filesystem::create_directory(dir_.path("slate0004"));
    write("slate0006", Str());
    write("slate0006.bak", pieces_[1]);
    write("slate0008", pieces_[2]);
    write("slate0009.bak", Str());
    readLog("slate");
    EXPECT_EQ(lines_, workedLines());
    const auto part = [this](const char* name) { return dir_.path(name); };
    EXPECT_EQ(errors(), (Lines{"ERROR Part " + part("slate0002") + " is missing",
                               "ERROR Cannot read part " + part("slate0003") + ": The file is empty",
                               "ERROR Cannot read part " + part("slate0004") + ": Is a directory",
                               "ERROR Part " + part("slate0005") + " is missing",
                               "ERROR Part " + part("slate0007") + " is missing",
                               "ERROR Cannot read part " + part("slate0009.bak") + ": The file is empty"}));
}

TEST_F(FileLogReaderTest, DamageUpToTheEndIsReportedToo) {
    const std::string path = write("slate", WorkedLogBytes() + junk(5));
    readLog("slate");
    EXPECT_EQ(lines_, workedLines());
    const Lines messages = errors();
    EXPECT_EQ(Lines(messages.end() - 2, messages.end()), (Lines{skipped(path, 5, "CE"), summary(path, 1, 5, 0)}));
}

TEST_F(FileLogReaderTest, ATornLastEntrySaysWhereItBegan) {
    const Str whole = WorkedLogBytes();
    const std::string path = write("slate", whole.substr(0, whole.length() - 1));
    readLog("slate");
    EXPECT_EQ(errors(),
              (Lines{"ERROR Encountered eof while reading Run Loop", skipped(path, 5, "C8"), summary(path, 1, 5, 0)}));
}

TEST_F(FileLogReaderTest, AnEmptyMessageIsNoDamage) {
    write("slate", pieces_[0] + pieces_[1] + FromHex("0E 52 00") + pieces_[2]);
    readLog("slate");
    EXPECT_EQ(lines_, workedLines());
    EXPECT_EQ(errors(), Lines());
}

TEST_F(FileLogReaderTest, AFileThatFailsSaysWhy) {
    std::filesystem::create_symlink("/proc/self/mem", dir_.path("slate0000.bak"));
    readLog("slate");
    EXPECT_EQ(errors().back(), "ERROR Cannot read " + dir_.path("slate0000.bak") + ": Input/output error");
}

// An entry is any byte but 'x'; nothing is logged and nothing noted of the entries.
class SilentReader : public LogReader {
public:
    unsigned int read() override {
        signed char c = 0;
        const bool isRead = isValid() && logStream_->readChar(c).bytesRead() == 1;
        error_ = isRead && c == 'x';
        return isRead && !error_ ? 1 : 0;
    }
};

TEST_F(FileLogReaderTest, AReaderWithoutMessagesIsSteppedOverDamageToo) {
    write("slate0000", "..xx..x");
    write("slate0002", ".");
    FileLogReader log(dir_.path("slate").c_str(), new SilentReader);
    EXPECT_TRUE(log.valid());
    log.readAll();
    EXPECT_FALSE(log.valid());
    EXPECT_EQ(log.getEntriesRead(), 5u);
    EXPECT_EQ(errors(), Lines());
    EXPECT_EQ(SilentReader().read(), 0u);
}
