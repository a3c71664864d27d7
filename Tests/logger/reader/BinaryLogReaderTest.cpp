#include "logger/reader/BinaryLogReader.h"

#include "ReaderFixture.h"
#include "support/MemoryStreams.h"

class BinaryLogReaderTest : public ReaderFixture {
protected:
    // Reads the whole text of bytes, stepping over nothing.
    void read(const Str& bytes) {
        in_.reset(new MemoryInStream(bytes));
        reader_.reset(newReader());
        reader_->setTimeAdjust(Timespan::ZERO_TIMESPAN);
        reader_->setInStream(*in_);
        while (!in_->eof() && !reader_->hasError()) reader_->read();
    }
    // A message at the time base, at most 63 bytes long.
    static Str message(const Str& text) {
        Str bytes = FromHex("0E 02");
        bytes.pushBack(static_cast<unsigned char>(text.length() << 1));
        return bytes + text;
    }

    std::unique_ptr<MemoryInStream> in_;  // outlives the reader
    std::unique_ptr<BinaryLogReader> reader_;
};

static const size_t WORKED_CYCLE = WORKED_LOG_DIRECTORY;  // then: data, unchanged data, syslog, event

TEST_F(BinaryLogReaderTest, AWholeLogBecomesItsLines) {
    read(WorkedLogBytes());
    EXPECT_EQ(lines_, workedLines());
    EXPECT_EQ(errors(), Lines());
    EXPECT_EQ(reader_->getFirstTime(), Timestamp(1338553800, 400000));
    EXPECT_EQ(reader_->getLastTime().toString(2), Str("2012-06-01T12:30:00.43Z"));
}

// Nobody takes its entries, or there is nothing to read.
TEST_F(BinaryLogReaderTest, AReaderAlone) {
    BinaryLogReader reader(log_, start_, end_, mission_, nullptr, nullptr);
    EXPECT_EQ(reader.read(), 0u);
    const Str bytes = WorkedLogBytes();
    MemoryInStream in(bytes);
    reader.setInStream(in);
    while (reader.read() > 0) continue;
    EXPECT_TRUE(in.eof());
    EXPECT_EQ(lines_, Lines());
}

TEST_F(BinaryLogReaderTest, ADirectoryAloneSetsNoTimes) {
    read(WorkedLogBytes(0, WORKED_LOG_DIRECTORY));
    EXPECT_EQ(lines_.size(), WORKED_LOG_DIRECTORY);
    EXPECT_EQ(reader_->getFirstTime(), Timestamp::NOT_SET_TIME);
    EXPECT_EQ(reader_->getLastTime(), Timestamp::NOT_SET_TIME);
}

TEST_F(BinaryLogReaderTest, AnImpossibleTimeIsAnErrorAndForgetsTheTimeBase) {
    read(WorkedLogBytes(0, WORKED_LOG_DIRECTORY) + WORKED_LOG[WORKED_CYCLE + 1].toBytes());
    EXPECT_TRUE(reader_->hasError());
    EXPECT_EQ(errors(),
              (Lines{"ERROR LogEntry timebase value of -32445540.00 is out of bounds.", "ERROR inStream at 0xB4"}));
}

TEST_F(BinaryLogReaderTest, AFixThatLeadsOutOfBoundsIsTakenBack) {
    read(WorkedLogBytes(0, WORKED_CYCLE + 1) + message("GPS fix at: 1e11"));
    EXPECT_TRUE(reader_->hasError());
    EXPECT_EQ(reader_->getTimeAdjust(), Timespan::ZERO_TIMESPAN);
}

// As after an impossible time. The fix itself is a time to go on from, up to the next cycle start.
TEST_F(BinaryLogReaderTest, AFixWithoutATimeBaseIsNoCorrection) {
    read(WorkedLogBytes(0, WORKED_LOG_DIRECTORY) + message("GPS fix at: 1338553801.9") + message("hi") +
         WORKED_LOG[WORKED_CYCLE].toBytes());
    ASSERT_EQ(lines_.size(), WORKED_LOG_DIRECTORY + 3);
    EXPECT_EQ(lines_[WORKED_LOG_DIRECTORY + 1], "2012-06-01T12:30:01.900Z,1338553801.900 [Depth](INFO): hi");
    EXPECT_EQ(lines_.back(), workedLines()[WORKED_CYCLE]);
    EXPECT_EQ(reader_->getTimeAdjust(), Timespan::ZERO_TIMESPAN);
}
