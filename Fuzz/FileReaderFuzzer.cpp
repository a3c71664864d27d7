// A whole log of any bytes, read from a file to its end; damage is stepped over. It is read entry by entry and in runs,
// with values and passing over them. Both ways must find the same entries and have the same to say.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "FreshSlate.h"
#include "logger/engine/LogEngine.h"
#include "logger/entry/SyslogEntry.h"
#include "logger/reader/BinaryLogReader.h"
#include "logger/reader/FileLogReader.h"
#include "logger/writer/text/TextLogWriter.h"
#include "support/MemoryStreams.h"

namespace {

// A file in memory that can be opened by name.
class MemoryFile {
public:
    std::string path() const { return "/proc/self/fd/" + std::to_string(file_); }
    bool fill(const uint8_t* data, size_t size) const {
        return ftruncate(file_, 0) == 0 && pwrite(file_, data, size, 0) == static_cast<ssize_t>(size);
    }

private:
    const int file_ = memfd_create("log", MFD_CLOEXEC);
};

// The texts of messages alone: when they were shown is no matter.
class MessageWriter : public LogWriter {
public:
    explicit MessageWriter(OutStream& out) : LogWriter(out) {}
    unsigned int write(const LogEntry* entry, const Unit*) override {
        *logStream_ << static_cast<const SyslogEntry*>(entry)->getMessage();
        return 1;
    }
};

// The entries' lines, the number of entries and the messages.
std::string TextOf(const std::string& path, LogEntry::Values values, bool inRuns) {
    const FreshSlate slate;
    MemoryOutStream out;
    MemoryOutStream messages;
    LogEngine console;
    console.addAssociation(new MessageWriter(messages), nullptr);
    LogEngine engine;
    const Logger logger("Fuzzer", &console);
    TextLogWriter* const text = new TextLogWriter(false);
    text->setOutStream(out);
    engine.addAssociation(text, nullptr);
    const Str everyMission;
    BinaryLogReader* const entries =
        new BinaryLogReader(logger, Timestamp::NOT_SET_TIME, Timestamp::NOT_SET_TIME, everyMission, &engine, &console);
    entries->setValues(values);
    FileLogReader reader(path.c_str(), entries);
    if (inRuns) reader.readAll();
    while (reader.read() > 0) continue;
    console.processQueue(Timespan::ZERO_TIMESPAN);
    const std::string lines = values == LogEntry::STORE_VALUES ? out.bytes_ : "";
    return lines + std::to_string(reader.getEntriesRead()) + messages.bytes_;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const MemoryFile file;
    if (!file.fill(data, size)) abort();
    for (const LogEntry::Values values : {LogEntry::STORE_VALUES, LogEntry::SKIP_VALUES}) {
        if (TextOf(file.path(), values, false) != TextOf(file.path(), values, true)) abort();
    }
    return 0;
}
