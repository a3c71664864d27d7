#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

#include "logger/engine/LogEngine.h"
#include "logger/reader/BinaryLogReader.h"
#include "support/MemoryStreams.h"
#include "support/SlateFixture.h"
#include "support/WorkedLog.h"

namespace {

// Makes of each entry what the page on the log's format shows: its line of text, then the bytes that writing it gives.
class DumpWriter : public LogWriter {
public:
    unsigned int write(const LogEntry* entry, const Unit* unit) override {
        MemoryOutStream bytes;
        entry->write(timeBase_, bytes);
        dump_ += std::string(entry->toString(unit).cStr()) + "\n";
        for (size_t i = 0; i < bytes.bytes_.size(); ++i, ++offset_) {
            char text[16];
            if (i % 16 == 0) {
                snprintf(text, sizeof text, "%s  %04zX ", i == 0 ? "" : "\n", offset_);
                dump_ += text;
            }
            snprintf(text, sizeof text, " %02X", static_cast<unsigned char>(bytes.bytes_[i]));
            dump_ += text;
        }
        dump_ += "\n";
        return 1;
    }
    std::string dump_;

private:
    Timestamp timeBase_ = Timestamp::NOT_SET_TIME;
    size_t offset_ = 0;
};

// A code of a number, and what is read of it.
struct Code {
    std::string code_;
    std::string read_;
};

template <typename Number>
Code Compact(long long number, OutStream& (OutStream::*write)(const Number&), InStream& (InStream::*read)(Number&)) {
    Number value = static_cast<Number>(number);
    MemoryOutStream out;
    (out.*write)(value);
    const Str bytes = out.str();
    MemoryInStream in(bytes);
    (in.*read)(value);
    return {out.hex().cStr(), std::to_string(value)};
}

template <typename Unpack>
Code Packed(long long packed, Unpack unpack) {
    char seconds[32];
    snprintf(seconds, sizeof seconds, "%.6f", unpack(packed).asDouble());
    return {std::to_string(packed), seconds};
}

Code CodeOf(const std::string& form, double number) {
    const long long whole = std::llround(number);
    if (form == "unsigned short") return Compact(whole, &OutStream::writeUShortCompact, &InStream::readUShortCompact);
    if (form == "signed 64-bit")
        return Compact(whole, &OutStream::writeLongLongCompact, &InStream::readLongLongCompact);
    const double seconds = std::floor(number);
    const Timestamp time(static_cast<int>(seconds), static_cast<unsigned int>(std::lround((number - seconds) * 1e6)));
    if (form == "compact micros") return Packed(time.asCompactMicros(), Timestamp::FromMicros);
    return Packed(time.asCompactMillis(), Timestamp::FromMillis);
}

std::string WithoutBlanks(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
}

std::string Page() {
    std::stringstream page;
    page << std::ifstream(LOG_FORMAT_PAGE).rdbuf();
    return page.str();
}

class LogFormatDocTest : public SlateFixture {};

TEST_F(LogFormatDocTest, TheWorkedLogIsWhatTheProgramReadsAndWrites) {
    LogEngine engine;
    DumpWriter* writer = new DumpWriter;
    engine.addAssociation(writer, nullptr);
    const Logger silent("test", nullptr);
    BinaryLogReader reader(silent, Timestamp::NOT_SET_TIME, Timestamp::NOT_SET_TIME, Str::EMPTY_STR, &engine, nullptr);
    const Str bytes = WorkedLogBytes();
    MemoryInStream in(bytes);
    reader.setInStream(in);
    while (reader.read() > 0) {
    }
    EXPECT_NE(std::string::npos, Page().find("```\n" + writer->dump_ + "```\n")) << writer->dump_;
}

TEST_F(LogFormatDocTest, TheCodesOfThePageAreThoseOfTheStreams) {
    std::istringstream page(Page().substr(Page().find("### Codes in bytes")));
    std::string line;
    int count = 0;
    while (std::getline(page, line) && line != "```") {
    }
    while (std::getline(page, line) && line != "```") {
        std::istringstream words(line);
        std::string form, formEnd, number;
        words >> form >> formEnd >> number;
        form += " " + formEnd;
        const Code code = CodeOf(form, atof(number.c_str()));
        const std::string readBack = code.read_ == number ? "" : "readsbackas" + code.read_;
        EXPECT_EQ(WithoutBlanks(form + number + code.code_ + readBack), WithoutBlanks(line));
        ++count;
    }
    EXPECT_LT(10, count);
}

}  // namespace
