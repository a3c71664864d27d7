// A whole log of any bytes, read from a file to its end; damage is stepped over. It is read twice: with numbers taken
// inline out of the file's buffer, as programs of one thread do, and by locked reads. Both must find the same entries.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "FreshSlate.h"
#include "logger/engine/LogEngine.h"
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

std::string TextOf(const std::string& path) {
    const FreshSlate slate;
    MemoryOutStream out;
    LogEngine console;
    LogEngine engine;
    const Logger logger("Fuzzer", &console);
    TextLogWriter* const text = new TextLogWriter(false);
    text->setOutStream(out);
    engine.addAssociation(text, nullptr);
    const Str everyMission;
    FileLogReader reader(path.c_str(), new BinaryLogReader(logger, Timestamp::NOT_SET_TIME, Timestamp::NOT_SET_TIME,
                                                           everyMission, &engine, &console));
    reader.readAll();
    return out.bytes_;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const MemoryFile file;
    if (!file.fill(data, size)) abort();
    ActAsOneThread();
    const std::string inlined = TextOf(file.path());
    ActAsOneThread(false);
    if (TextOf(file.path()) != inlined) abort();
    return 0;
}
