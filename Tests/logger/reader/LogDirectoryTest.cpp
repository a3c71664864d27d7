#include "logger/reader/LogDirectory.h"

#include "ReaderFixture.h"
#include "data/Component.h"
#include "data/DataReader.h"
#include "logger/engine/DirectoryFeed.h"
#include "logger/reader/FileLogReader.h"

class LogDirectoryTest : public ReaderFixture {
protected:
    void readDirectory(const Str& bytes, bool showMessages = true) {
        LogDirectory(slate_).read(dir_.write("slate", stringOf(bytes)).c_str(), showMessages);
    }
    static bool isWorkedDirectoryRead() {
        return Slate::FindCodedName("Depth") != nullptr && Slate::GetElementURICode("Depth.depth") == 0 &&
               Slate::GetDataAccess(static_cast<unsigned short>(0)) != nullptr;
    }
};

// A scan stores no value, and the log still reads whole.
TEST_F(LogDirectoryTest, ASideFileAndAWholeLogGiveTheSame) {
    for (const size_t last : {WORKED_LOG_DIRECTORY, sizeof WORKED_LOG / sizeof *WORKED_LOG}) {
        Slate::ClearDirectory();
        readDirectory(WorkedLogBytes(0, last));
        EXPECT_TRUE(isWorkedDirectoryRead() && Slate::IsDirectoryRead());
    }
    EXPECT_EQ(Slate::GetElement(static_cast<unsigned short>(0)), nullptr);
    FileLogReader log(dir_.path("slate").c_str(), newReader());
    log.readAll();
    EXPECT_EQ(lines_, workedLines());
}

TEST_F(LogDirectoryTest, WithoutRecordsNoDirectoryIsRead) {
    readDirectory(WorkedLogBytes(0, 1));  // the version alone
    EXPECT_FALSE(Slate::IsDirectoryRead());
    Slate::ReadDirectory(dir_.path("missing").c_str());
    EXPECT_FALSE(Slate::IsDirectoryRead());
}

TEST_F(LogDirectoryTest, ADamagedSideFileGivesTheRecordsThatDecode) {
    readDirectory(FromHex("54 54 54") + WorkedLogBytes(0, 3) + FromHex("54") + WorkedLogBytes(3, 4) +
                  Str("*n code=00"));
    EXPECT_TRUE(isWorkedDirectoryRead());
    EXPECT_FALSE(errors().empty());
}

TEST_F(LogDirectoryTest, AScanOfWhatIsReadAgainLogsNothing) {
    readDirectory(FromHex("54 54 54") + WorkedLogBytes(), false);
    EXPECT_TRUE(isWorkedDirectoryRead());
    EXPECT_EQ(log_.take(), Lines());
}

TEST_F(LogDirectoryTest, TheWholeDirectoryIsWrittenNamesFirst) {
    readDirectory(WorkedLogBytes());
    Slate::ClearDirectory();
    Slate::ReadDirectory(dir_.path("slate").c_str());
    LineCollector collector(lines_);
    Slate::WriteDirectory(&collector, false);
    Slate::WriteNameEntry(Slate::GetName(0), &collector, false);
    Slate::WriteElementURIEntry(Slate::GetElementURI(0), &collector, false);
    Slate::WriteDataAccessEntry(Slate::GetDataAccess(0), &collector, false);
    EXPECT_EQ(lines_, (Lines{WORKED_LOG[1].line_, WORKED_LOG[2].line_, WORKED_LOG[3].line_, WORKED_LOG[1].line_,
                             WORKED_LOG[2].line_, WORKED_LOG[3].line_}));
}

TEST_F(LogDirectoryTest, WithoutAWriterWhatIsNewGoesToTheFeed) {
    readDirectory(WorkedLogBytes());
    Slate::WriteDirectory(nullptr, false);
    EXPECT_EQ(lines_, Lines());
    const DirectoryFeed feed(slate_, engine_);
    Slate::EnableDirectoryWrites();
    Slate::RegisterElementURI(new ElementURI(ElementURI::NO_CODE - 1, "Last.code", ElementURI::DATA_ELEMENT));
    Component rudder("Rudder");  // whose element gets no code any more, and no access then
    Slate::NewReader(&rudder, ElementURI(ElementURI::NO_CODE, "Rudder.angle", ElementURI::DATA_ELEMENT));
    Slate::WriteDirectory(nullptr, false);
    EXPECT_EQ(lines_, Lines{"NAME 1 Rudder"});
}
