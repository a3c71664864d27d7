#include "logger/writer/binary/BinaryLogWriter.h"

#include "data/DataAccess.h"
#include "data/DataValue.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/DirectoryEntry.h"

static const short VERSION_IN_FORCE = 0;

unsigned int BinaryLogWriter::writeHeader() {
    resetTimeBase();
    if (!withDirectory_ || !isValid()) return 0;
    return DirectoryEntry(VERSION_IN_FORCE, log_).write(timeBase_, *logStream_);
}

unsigned int BinaryLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (entry == nullptr || !isValid()) return 0;
    if (debug_) writeTrace(*entry, unit);
    const unsigned int bytes = entry->write(timeBase_, *logStream_);
    if (debug_) *logStream_ << '\n';
    return bytes;
}

void BinaryLogWriter::writeTrace(const LogEntry& entry, const Unit* unit) {
    *logStream_ << entry.toString(unit);
    if (entry.getType() == LogEntry::DATA_LOG_ENTRY) writeTypes(static_cast<const DataEntry&>(entry));
}

// A value that its access does not describe would be read back wrong: it is marked.
void BinaryLogWriter::writeTypes(const DataEntry& entry) {
    const BinaryDataType accessType = entry.getDataAccess()->getBinaryType();
    const BinaryDataType valueType = entry.getDataValue() == nullptr ? NO_TYPE : entry.getDataValue()->getBinaryType();
    *logStream_ << '!';
    logStream_->writeShortHex(static_cast<short>(accessType)) << '!';
    logStream_->writeShortHex(static_cast<short>(valueType)) << '!';
    if (accessType != valueType) *logStream_ << "?!?!?|";
}
