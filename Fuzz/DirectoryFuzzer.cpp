// Directory records of any bytes, back to back; what they register is written out again as a whole directory.
#include <memory>

#include "FreshSlate.h"
#include "FuzzStreams.h"
#include "logger/entry/LogEntry.h"
#include "logger/reader/LogDirectory.h"
#include "logger/writer/binary/BinaryLogWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FreshSlate slate;
    const Logger logger("Fuzzer", nullptr);
    BytesInStream in(data, size);
    while (!in.eof()) {
        Timestamp timeBase;
        Timespan timeAdjust;
        bool error = false;
        const std::unique_ptr<LogEntry> entry(LogEntry::Read(timeBase, timeAdjust, in, logger, error));
        if (entry != nullptr) entry->toString(nullptr);
    }
    NullOutStream out;
    BinaryLogWriter writer(out, true);
    writer.writeHeader();
    LogDirectory(slate.log()).write(&writer);
    return 0;
}
