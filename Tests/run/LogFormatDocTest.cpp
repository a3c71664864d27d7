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

}  // namespace
