#include "logger/reader/BinaryLogReader.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "ReaderFixture.h"
#include "io/FileInStream.h"
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

// The second of two pages is gone: reading fails in the middle of the entry that would go on there.
TEST_F(BinaryLogReaderTest, AnEntryThatCannotBeReadOnIsDroppedInSilence) {
    const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    char* const pages =
        static_cast<char*>(mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    ASSERT_NE(MAP_FAILED, static_cast<void*>(pages));
    munmap(pages + page, page);
    const Str whole = WorkedLogBytes();
    for (size_t lacking = 1; lacking < 30; ++lacking) {
        const size_t length = whole.length() - lacking;
        std::copy_n(whole.data(), length, pages + page - length);
        FileInStream memory("/proc/self/mem");
        ASSERT_TRUE(memory.seekTo(reinterpret_cast<long long>(pages + page - length)));
        const std::unique_ptr<BinaryLogReader> reader(newReader());
        reader->setInStream(memory);
        while (!memory.hasFailed()) reader->read();
        EXPECT_EQ(EIO, memory.readError());
        EXPECT_EQ(errors(), Lines()) << lacking;
        EXPECT_LT(lines_.size(), workedLines().size());
        lines_.clear();
        Slate::ClearDirectory();
    }
    munmap(pages, page);
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
