#include <algorithm>
#include <cstdio>
#include <random>

#include "ReaderFixture.h"
#include "logger/reader/FileLogReader.h"
#include "run/DiveLog.h"

// Logs with random damage: whatever it is, the reader gets to the end, says little, and accounts for every byte.

namespace {

// Bytes of a file, from the first up to but not including the last.
struct Span {
    long long begin_;
    long long end_;
    bool operator<(const Span& other) const { return begin_ < other.begin_; }
};

// Notes how many bytes each read took and what came of it.
class NotingReader : public BinaryLogReader {
public:
    using BinaryLogReader::BinaryLogReader;
    unsigned int read() override {
        const size_t before = logStream_->getTotalBytesRead();
        const unsigned long complaintsBefore = getMessageGate()->getComplaints();
        const unsigned int n = BinaryLogReader::read();
        lastSize_ = static_cast<long long>(logStream_->getTotalBytesRead() - before);
        if (n == 0 && !hasError() && getMessageGate()->getComplaints() == complaintsBefore) leftOut_ += lastSize_;
        return n;
    }
    long long lastSize_ = 0;
    long long leftOut_ = 0;  // bytes of entries that are none by design
};

// Overwrites, inserts or deletes a few bytes at one to three places.
std::string Damaged(std::string log, std::minstd_rand& random) {
    for (size_t places = 1 + random() % 3; places > 0; --places) {
        const size_t at = random() % log.size();
        std::string bytes(1 + random() % 40, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random() >> 8);
        const unsigned long kind = random() % 3;
        log.replace(at, kind == 1 ? 0 : bytes.size(), kind == 2 ? "" : bytes);
    }
    return log;
}

}  // namespace

class DamagedLogTest : public ReaderFixture {
protected:
    void read(const std::string& bytes) {
        NotingReader* const reader = new NotingReader(log_, start_, end_, mission_, &engine_, nullptr);
        FileLogReader file(dir_.write("dive", bytes).c_str(), reader);
        while (file.read() > 0) entries_.push_back({file.getBytesPassed() - reader->lastSize_, file.getBytesPassed()});
        leftOut_ = reader->leftOut_;
    }
    // What the messages say was skipped.
    static std::vector<Span> StretchesIn(const Lines& messages) {
        std::vector<Span> stretches;
        for (const std::string& message : messages) {
            Span stretch{};
            long long bytes = 0;
            const size_t from = message.find(" from byte ");
            if (sscanf(message.c_str(), "ERROR Skipped %lld", &bytes) != 1 || from == std::string::npos) continue;
            sscanf(message.c_str() + from, " from byte %llx", reinterpret_cast<unsigned long long*>(&stretch.begin_));
            stretch.end_ = stretch.begin_ + bytes;
            stretches.push_back(stretch);
        }
        return stretches;
    }
    static long long skippedBytesIn(const Lines& messages) {
        static const std::string LABEL = "bytes in them ";
        const size_t at = messages.empty() ? std::string::npos : messages.back().find(LABEL);
        return at == std::string::npos ? 0 : std::stoll(messages.back().substr(at + LABEL.size()));
    }
    void expectEveryByteAccountedFor(const Lines& messages, long long size) {
        std::vector<Span> spans = StretchesIn(messages);
        spans.insert(spans.end(), entries_.begin(), entries_.end());
        std::sort(spans.begin(), spans.end());
        long long gaps = 0;
        long long end = 0;
        long long summedUp = skippedBytesIn(messages);  // and not told of one by one
        for (const Span& span : spans) {
            EXPECT_LE(end, span.begin_) << "read twice";
            gaps += span.begin_ - end;
            end = span.end_;
        }
        for (const Span& stretch : StretchesIn(messages)) summedUp -= stretch.end_ - stretch.begin_;
        EXPECT_LE(summedUp, gaps + size - end);
        EXPECT_GE(summedUp + leftOut_, gaps + size - end) << "which nobody told of";
    }
    void forget() {
        entries_.clear();
        lines_.clear();
        Slate::ClearDirectory();
        slate_.version() = LogVersion::NEWEST;
    }

    std::vector<Span> entries_;
    long long leftOut_ = 0;
};

TEST_F(DamagedLogTest, EveryLostEntryIsAccountedFor) {
    const std::string whole = DiveLog::Of(100);
    read(whole);
    const Lines allLines = lines_;
    const std::vector<Span> allEntries = entries_;
    for (unsigned int seed = 1; seed <= 300; ++seed) {
        SCOPED_TRACE(seed);
        forget();
        log_.take();
        std::minstd_rand random(seed);
        const std::string log = Damaged(whole, random);
        read(log);
        const Lines messages = errors();
        EXPECT_GE(100u, messages.size());
        expectEveryByteAccountedFor(messages, static_cast<long long>(log.size()));
        const size_t same = static_cast<size_t>(
            std::mismatch(whole.begin(), whole.end(), log.begin(), log.end()).first - whole.begin());
        for (size_t i = 0; i < allEntries.size() && allEntries[i].end_ <= static_cast<long long>(same); ++i) {
            ASSERT_LT(i, lines_.size());
            EXPECT_EQ(allLines[i], lines_[i]);
        }
        // What is told of otherwise is left out, and says so.
        const bool contradicts = std::any_of(messages.begin(), messages.end(), [](const std::string& message) {
            return message.find(" contradicts ") != std::string::npos;
        });
        EXPECT_TRUE(contradicts || leftOut_ < 10) << leftOut_;
        const size_t lost = allLines.size() - std::min(allLines.size(), lines_.size());
        EXPECT_TRUE(lost <= 3 || !messages.empty()) << lost;
    }
}
