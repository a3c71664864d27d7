#include "logger/writer/TextLogWriter.h"

#include "logger/entry/DirectoryEntry.h"

namespace {
const short VERSION_IN_FORCE = 0;
}

unsigned int TextLogWriter::writeHeader() {
    if (!withDirectory_ || !isValid()) return 0;
    Timestamp timeBase = Timestamp::NOT_SET_TIME;
    return DirectoryEntry(VERSION_IN_FORCE).write(timeBase, *logStream_);
}

unsigned int TextLogWriter::write(const LogEntry* entry, const Unit* unit) {
    if (!isValid()) return 0;
    const MutexLocker lock(writeMutex_);
    if (entry == nullptr) return 0;
    const Str line = entry->toString(unit);
    if (!line.isEmpty()) *logStream_ << line << '\n';
    return static_cast<unsigned int>(line.length()) + 1;
}
