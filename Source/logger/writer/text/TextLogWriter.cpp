#include "logger/writer/text/TextLogWriter.h"

#include "io/OutText.h"
#include "logger/entry/DirectoryEntry.h"

namespace {
const short VERSION_IN_FORCE = 0;
}

unsigned int TextLogWriter::writeHeader() {
    if (!withDirectory_ || !isValid()) return 0;
    Timestamp timeBase = Timestamp::NOT_SET_TIME;
    return DirectoryEntry(VERSION_IN_FORCE, log_).write(timeBase, *logStream_);
}

unsigned int TextLogWriter::write(const LogEntry* entry, const Unit* unit) {
    if (!isValid()) return 0;
    const MutexLocker lock(writeMutex_);
    if (entry == nullptr) return 0;
    OutText line(*logStream_);
    entry->appendTo(line, unit);
    const size_t length = line.length();
    line.append('\n');
    if (length > 0) line.put();
    return static_cast<unsigned int>(length + 1);
}
