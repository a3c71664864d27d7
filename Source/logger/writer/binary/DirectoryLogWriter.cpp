#include "logger/writer/binary/DirectoryLogWriter.h"

#include "logger/reader/LogDirectory.h"

unsigned int DirectoryLogWriter::writeHeader() {
    const unsigned int bytes = BinaryLogWriter::writeHeader();
    DirectoryWrites& writes = log_.directoryWrites();
    if (!writes.hasHeader()) {
        LogDirectory(log_).write(nullptr);
        writes.noteHeader();
    } else if (initialized_) {
        LogDirectory(log_).write(this);
    }
    initialized_ = true;
    return bytes;
}
