// Entries can be read one by one or in runs: both ways the same comes of them.

#include <random>

#include "ReaderFixture.h"
#include "logger/reader/FileLogReader.h"
#include "support/MemoryStreams.h"

namespace {

// One element under accesses of every sort, and others whose entries need a closer look.
const char* const RECORDS[] = {
    "n code=0000 name=\"Nav\"\n",
    "e code=0000 elementURI=\"Nav.speed\" type=02\n",
    "e code=0001 elementURI=\"Nav.text\" type=02\n",
    "e code=0002 elementURI=\"Nav.open\" type=02\n",
    "a code=0000 owner=0000 element=0000 universal=3FFF unitName=\"meter\" type=0B size=0003 fl=01\n",
    "a code=0001 owner=0000 element=0000 universal=3FFF unitName=\"meter\" type=0F size=0004 fl=04\n",  // another class
    "a code=0002 owner=0000 element=0000 universal=3FFF unitName=\"furlong\" type=0B size=0003 fl=01\n",
    "a code=0003 owner=0000 element=0001 universal=3FFF unitName=\"none\" type=00 size=0001 fl=01\n",   // a text
    "a code=0004 owner=0000 element=0002 universal=3FFF unitName=\"none\" type=FF size=0000 fl=00\n",   // inherits
    "a code=0005 owner=0000 element=0002 universal=3FFF unitName=\"meter\" type=1F size=0003 fl=01\n",  // too short
    "a code=0006 owner=0000 element=0007 universal=3FFF unitName=\"meter\" type=0F size=0004 fl=01\n",  // not named
};
const size_t SIZES[] = {3, 4, 3, 0, 3, 3, 4};  // of the values; 0: a length precedes them
const unsigned int UNKNOWN_CODE = std::size(SIZES);

// A log of entries at random, in which now and then the directory goes on or says otherwise.
class RandomLog {
public:
    explicit RandomLog(unsigned int seed) : random_(seed), hasFlags_(seed % 6 != 0) {
        addRecord(hasFlags_ ? "v 0008\n" : "v 0003\n");
        for (const char* record : RECORDS) addRecord(record);
        addCycle();
        while (out_.bytes_.size() < 150000) addAny();
    }
    const std::string& bytes() const { return out_.bytes_; }

private:
    unsigned int upTo(unsigned int end) { return static_cast<unsigned int>(random_() >> 8) % end; }
    void addRecord(const char* record) { out_.write(FromHex("2A").data(), 1).write(record); }
    void addCycle() { out_.write(WORKED_LOG[WORKED_LOG_DIRECTORY].toBytes().data(), 8); }
    void addBytes(size_t n) {
        for (; n > 0; --n) out_.writeChar(static_cast<signed char>(upTo(256)));
    }

    void addAny() {
        const unsigned int kind = upTo(300);
        if (kind == 0) addCycle();
        if (kind == 1) addRecord(RECORDS[upTo(std::size(RECORDS))]);
        if (kind == 2) addRecord("e code=0001 elementURI=\"Nav.other\" type=02\n");
        if (kind == 3) addBytes(1 + upTo(3));
        if (kind > 3) addData(upTo(50) == 0 ? upTo(UNKNOWN_CODE + 1) : upTo(4));
    }

    void addData(unsigned int code) {
        out_.writeUShortCompact(static_cast<unsigned short>(code << 3 | upTo(2) << 2 | 2));
        const bool hasValue = !hasFlags_ || upTo(4) > 0;
        const long long time = upTo(upTo(2) == 0 ? 60 : 1000000);
        out_.writeLongLongCompact(hasFlags_ ? time << 1 | (hasValue ? 1 : 0) : time);
        if (hasValue && code < UNKNOWN_CODE) addValue(SIZES[code]);
    }

    void addValue(size_t size) {
        if (size == 0) {
            size = upTo(100) == 0 ? 5000 : upTo(20);
            out_.writeShort(static_cast<short>(size));
        }
        addBytes(size);
    }

    std::minstd_rand random_;
    const bool hasFlags_;
    MemoryOutStream out_;
};

}  // namespace

class RunReadingTest : public ReaderFixture {
protected:
    // Everything that can be seen of the reading of a log.
    struct Outcome {
        Lines lines_;
        Lines messages_;
        unsigned int entries_;
        Timestamp first_;
        Timestamp last_;
        bool operator==(const Outcome& o) const {
            return lines_ == o.lines_ && messages_ == o.messages_ && entries_ == o.entries_ && first_ == o.first_ &&
                   last_ == o.last_;
        }
    };

    Outcome read(const std::string& path, bool inRuns, LogEntry::Values values) {
        BinaryLogReader* const entries = newReader();
        entries->setValues(values);
        FileLogReader file(path.c_str(), entries);
        if (inRuns) file.readAll();
        while (file.read() > 0) continue;
        Outcome outcome{lines_, log_.take(), file.getEntriesRead(), entries->getFirstTime(), entries->getLastTime()};
        if (values == LogEntry::SKIP_VALUES) {  // what is passed over is not handed on
            outcome.lines_.clear();
            outcome.first_ = outcome.last_ = Timestamp::NOT_SET_TIME;
        }
        lines_.clear();
        Slate::ClearDirectory();
        slate_.version() = LogVersion::NEWEST;
        return outcome;
    }
    void expectTheSame(const std::string& path, LogEntry::Values values) {
        const Outcome oneByOne = read(path, false, values);
        const Outcome inRuns = read(path, true, values);
        EXPECT_LT(1000u, oneByOne.entries_);
        EXPECT_EQ(oneByOne.entries_, inRuns.entries_);
        EXPECT_EQ(oneByOne.messages_, inRuns.messages_);
        EXPECT_TRUE(oneByOne == inRuns);
    }
};

TEST_F(RunReadingTest, GivesWhatEntriesReadOneByOneGive) {
    for (unsigned int seed = 1; seed <= 12; ++seed) {
        SCOPED_TRACE(seed);
        const std::string path = dir_.write("log", RandomLog(seed).bytes());
        start_ = seed % 2 == 0 ? Timestamp::NOT_SET_TIME : Timestamp(1338553800, 700000);
        end_ = seed % 3 == 0 ? Timestamp::NOT_SET_TIME : Timestamp(1338553801, 0);
        expectTheSame(path, LogEntry::STORE_VALUES);
        expectTheSame(path, LogEntry::SKIP_VALUES);
    }
}
