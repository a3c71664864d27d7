#include "logger/writer/table/TableLogWriter.h"

#include <cerrno>
#include <cstring>

#include "data/DataAccess.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/EventEntry.h"
#include "logger/entry/SyslogEntry.h"
#include "logger/writer/HasFilename.h"
#include "logger/writer/table/PendingRows.h"

TableLogWriter::TableLogWriter(LogWriter* outputTo, const RequestedVariables& variables, bool interpolate)
    : outputTo_(outputTo), columns_(variables, log_), interpolate_(interpolate), lastTime_(Timestamp::NOT_SET_TIME) {
    if (outputTo_ != nullptr) outputTo_->addParent();
    if (interpolate_) waitIn(PendingRows::ROOM);
}

TableLogWriter::~TableLogWriter() {
    Release(outputTo_);
}

void TableLogWriter::setRoom(const PageMemory::Room& room) {
    if (interpolate_) waitIn(room);
}

void TableLogWriter::waitIn(const PageMemory::Room& room) {
    pendingRows_.reset(new PendingRows(columns_.count(), room, [this] { return outputName(); }));
}

unsigned int TableLogWriter::writeHeader() {
    return outputTo_ == nullptr ? 0 : outputTo_->writeHeader();
}

unsigned int TableLogWriter::write(const LogEntry* entry, const Unit*) {
    const MutexLocker lock(writeMutex_);
    if (entry == nullptr || endedEarly_) return 0;
    initializeTableLogWriter();
    switch (entry->getType()) {
        case LogEntry::DATA_LOG_ENTRY:
            return writeSample(static_cast<const DataEntry&>(*entry));
        case LogEntry::EVENT_LOG_ENTRY:
            return interpolate_ ? 0 : writeEvent(static_cast<const EventEntry&>(*entry));
        case LogEntry::SYSLOG_LOG_ENTRY:
            return writeMessage(static_cast<const SyslogEntry&>(*entry));
        default:
            return 0;
    }
}

// The column of an element which is its own universal is filled twice by a best value. A thinned series then tests the
// value that ended a segment too, which the next one would otherwise replace.
unsigned int TableLogWriter::writeSample(const DataEntry& entry) {
    const unsigned int bytes = writeCells(entry, entry.getElementCode());
    return bytes + writeCells(entry, entry.getBestCode());
}

unsigned int TableLogWriter::writeCells(const DataEntry& entry, unsigned short code) {
    unsigned int bytes = 0;
    for (int column = columns_.indexOf(code); column >= 0; column = columns_.indexBefore(column)) {
        bytes += writeCell(entry, column);
    }
    return bytes;
}

unsigned int TableLogWriter::writeCell(const DataEntry& entry, int column) {
    if (!interpolate_) return writeToColumn(&entry, column);
    if (endedEarly_) return 0;
    pendingRows_->add(entry, column, lastTime_);
    return writeReadyRows();
}

unsigned int TableLogWriter::writeEvent(const EventEntry& entry) {
    if (!entry.isCycleStart()) return 0;
    unsigned int bytes = 0;
    if (lastTime_.isSet()) {
        bytes = writeRow();
        clearRow();
    }
    lastTime_ = entry.getTimestamp();
    return bytes;
}

unsigned int TableLogWriter::writeMessage(const SyslogEntry& entry) {
    if (!interpolate_) return writeSyslog(&entry);
    pendingRows_->add(entry, lastTime_);
    return writeReadyRows();
}

unsigned int TableLogWriter::writeReadyRows() {
    unsigned int bytes = 0;
    while (pendingRows_->hasReadyRow()) bytes += writeFrontRow();
    endWhereRowsAreLost();
    return bytes;
}

unsigned int TableLogWriter::writeFrontRow() {
    lastTime_ = pendingRows_->frontTime();
    unsigned int bytes = 0;
    for (int column = 0; column < columns_.count(); ++column) {
        const DataEntry* cell = pendingRows_->frontCell(column);
        if (cell != nullptr || pendingRows_->isReaderColumn(column)) bytes += writeToColumn(cell, column);
    }
    if (const SyslogEntry* message = pendingRows_->frontSyslog()) bytes += writeSyslog(message);
    if (!pendingRows_->hasLost()) bytes += writeRow();
    pendingRows_->dropFront();
    return bytes;
}

unsigned int TableLogWriter::writeAllInterpolated() {
    if (!interpolate_) return 0;
    unsigned int bytes = 0;
    while (!pendingRows_->isEmpty() && !pendingRows_->hasLost()) bytes += writeFrontRow();
    endWhereRowsAreLost();
    pendingRows_->forgetSamples();
    return bytes;
}

unsigned int TableLogWriter::writeFooter() {
    const unsigned int bytes = writeAllInterpolated();
    return outputTo_ == nullptr ? bytes : bytes + outputTo_->writeFooter();
}

void TableLogWriter::resetInputs() {
    writeAllInterpolated();
    if (outputTo_ != nullptr) outputTo_->resetInputs();
    columns_.reset();
}

size_t TableLogWriter::heldBytes() {
    const size_t own = interpolate_ ? pendingRows_->heldBytes() : 0;
    return outputTo_ == nullptr ? own : own + outputTo_->heldBytes();
}

void TableLogWriter::freeMemory() {
    if (interpolate_) {
        writeAllInterpolated();
        endEarly(strerror(ENOMEM));
    }
    if (outputTo_ != nullptr) outputTo_->freeMemory();
}

void TableLogWriter::endWhereRowsAreLost() {
    if (!pendingRows_->hasLost()) return;
    endEarly(pendingRows_->lossReason().cStr());
    waitIn(PendingRows::ROOM);
}

// A file that is written to without this writer being asked whether it is whole is told here.
void TableLogWriter::endEarly(const char* reason) {
    if (endedEarly_) return;
    endedEarly_ = true;
    log_.getLogger().fileFailure("write", outputName(), reason);
    if (HasFilename* const file = outputFile()) file->countAsIncomplete();
}

HasFilename* TableLogWriter::outputFile() {
    return dynamic_cast<HasFilename*>(outputTo_ == nullptr ? this : outputTo_);
}

Str TableLogWriter::outputName() {
    HasFilename* const file = outputFile();
    return file != nullptr ? file->getFilename() : logStream_ != nullptr ? Str(logStream_->getName()) : Str();
}

unsigned int TableLogWriter::writeRow() {
    if (outputTo_ == nullptr) return 0;
    const EventEntry cycleStart(lastTime_);
    return outputTo_->write(&cycleStart, nullptr);
}

unsigned int TableLogWriter::writeSyslog(const SyslogEntry* entry) {
    return outputTo_ == nullptr ? 0 : outputTo_->write(entry, nullptr);
}

unsigned int TableLogWriter::writeToColumn(const DataEntry* entry, int column) {
    if (outputTo_ == nullptr || entry == nullptr) return 0;
    return outputTo_->write(entry, columns_.unit(column));
}
