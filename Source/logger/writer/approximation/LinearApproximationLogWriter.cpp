#include "logger/writer/approximation/LinearApproximationLogWriter.h"

#include "logger/entry/DataEntry.h"
#include "logger/entry/SyslogEntry.h"

LinearApproximationLogWriter::LinearApproximationLogWriter(LogWriter* outputTo, const RequestedVariables& variables,
                                                           bool sendAtStartCycle, bool makeDirEntries)
    : TableLogWriter(outputTo, variables, false),
      sendAtStartCycle_(sendAtStartCycle),
      makeDirEntries_(makeDirEntries),
      varData_(new std::unique_ptr<VarData>[columns_.count()]),
      directory_(columns_.count(), log_),
      cycleStartEntry_(Timestamp::EPOCH_START_TIME) {}

unsigned int LinearApproximationLogWriter::writeHeader() {
    resetDirectoryEntries();
    return outputTo_->writeHeader();
}

void LinearApproximationLogWriter::endCycle() {
    outputTo_->endCycle();
}

void LinearApproximationLogWriter::config(Logger& logger) {
    outputTo_->config(logger);
}

// A variable has one series, however often it is listed: a table behind shows each point in all its columns.
unsigned int LinearApproximationLogWriter::writeToColumn(const DataEntry* entry, int column) {
    if (columns_.isListedAgain(column)) return 0;
    if (entry != nullptr && !entry->isNumber()) return passOn(*entry, column);
    VarData* series = varData_[column].get();
    if (series == nullptr) return entry == nullptr ? 0 : startSeries(*entry, column);
    if (entry == nullptr) return passPoint(column);
    if (!series->checkNextEntry(entry)) return 0;
    unsigned int bytes = passPoint(column);
    if (series->wasNaN()) bytes += passPoint(column);  // the gap itself shows in the output
    return bytes;
}

unsigned int LinearApproximationLogWriter::writeRow() {
    if (!recentOutput_ || !sendAtStartCycle_) return 0;
    unsigned int bytes = 0;
    for (int column = 0; column < columns_.count(); ++column) bytes += writeToColumn(nullptr, column);
    cycleStartEntry_.setTimestamp(lastTime_);
    bytes += outputTo_->write(&cycleStartEntry_, nullptr);
    recentOutput_ = false;
    return bytes;
}

unsigned int LinearApproximationLogWriter::writeFooter() {
    return forceWriteRow();
}

// What is pending speaks in the codes of the input that ends.
void LinearApproximationLogWriter::resetInputs() {
    forceWriteRow();
    for (int column = 0; column < columns_.count(); ++column) varData_[column].reset();
    TableLogWriter::resetInputs();
}

unsigned int LinearApproximationLogWriter::forceWriteRow() {
    unsigned int bytes = 0;
    for (int column = 0; column < columns_.count(); ++column) {
        if (varData_[column] != nullptr) bytes += passPoint(column);
    }
    return bytes + writeRow();
}

unsigned int LinearApproximationLogWriter::writeSyslog(const SyslogEntry* entry) {
    if (!makeDirEntries_) return outputTo_->write(entry, nullptr);
    const unsigned int bytes = directory_.describe(*entry, *outputTo_);
    return bytes + outputTo_->write(directory_.translated(*entry).get(), nullptr);
}

unsigned int LinearApproximationLogWriter::forceWrite(DataEntry* entry) {
    const int column = columns_.indexOf(entry->getElementCode());
    if (column >= 0) return passOn(*entry, column);
    if (entry->getDataValue() == nullptr) return 0;
    recentOutput_ = true;
    if (!makeDirEntries_) return outputTo_->write(entry, nullptr);
    const ElementURI* const name = log_.getElementURI(entry->getElementCode());
    return name == nullptr ? 0 : sendDescribed(*entry, directory_.columnBehind(*name), *name, nullptr);
}

unsigned int LinearApproximationLogWriter::startSeries(const DataEntry& entry, int column) {
    varData_[column].reset(new VarData(entry, columns_.error(column)));
    return passOn(*varData_[column]->getDataEntry(), column);
}

unsigned int LinearApproximationLogWriter::passPoint(int column) {
    varData_[column]->advance();
    return passOn(*varData_[column]->getDataEntry(), column);
}

unsigned int LinearApproximationLogWriter::passOn(const DataEntry& entry, int column) {
    if (entry.getDataValue() == nullptr) return 0;
    recentOutput_ = true;
    return sendOutput(&entry, column);
}

unsigned int LinearApproximationLogWriter::sendOutput(const DataEntry* entry, int column) {
    const Unit* const unit = columns_.unit(column);
    return makeDirEntries_ ? sendDescribed(*entry, column, columns_.name(column), unit) : outputTo_->write(entry, unit);
}

unsigned int LinearApproximationLogWriter::sendDescribed(const DataEntry& entry, int column, const Str& name,
                                                         const Unit* unit) {
    const unsigned int bytes = directory_.describe(name, column, entry, unit, *outputTo_);
    const std::unique_ptr<DataEntry> translated = directory_.translated(entry, column);
    return translated == nullptr ? bytes : bytes + outputTo_->write(translated.get(), unit);
}
