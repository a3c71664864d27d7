#include "logger/writer/FilterLogWriter.h"

#include "logger/entry/DataEntry.h"
#include "logger/entry/EventEntry.h"

FilterLogWriter::FilterLogWriter(LogWriter* outputTo, int varCount, char** varList, char** unitList,
                                 bool passCycleStarts, int attCount, char** attList)
    : outputTo_(outputTo),
      variables_(varCount, varList, unitList, log_),
      attributes_(attCount, attList, nullptr, log_),
      passCycleStarts_(passCycleStarts),
      lastTime_(Timestamp::NOT_SET_TIME) {
    if (outputTo_ == nullptr) return;
    outputTo_->addParent();
    outputTo_->resetInputs();
}

FilterLogWriter::~FilterLogWriter() {
    Release(outputTo_);
}

unsigned int FilterLogWriter::writeHeader() {
    return outputTo_ == nullptr ? 0 : outputTo_->writeHeader();
}

unsigned int FilterLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (entry == nullptr) return 0;
    initializeFilterLogWriter();
    switch (entry->getType()) {
        case LogEntry::DATA_LOG_ENTRY:
            return writeSelected(static_cast<const DataEntry&>(*entry), unit);
        case LogEntry::EVENT_LOG_ENTRY:
            return writeEvent(static_cast<const EventEntry&>(*entry));
        default:
            return 0;
    }
}

// A cycle start is passed on only once a previous cycle exists.
unsigned int FilterLogWriter::writeEvent(const EventEntry& event) {
    if (!passCycleStarts_ || event.getEventType() != EventEntry::START_CYCLE) return 0;
    const unsigned int bytes = lastTime_ == Timestamp::NOT_SET_TIME ? 0 : writeCycleStart(&event);
    lastTime_ = event.getTimestamp();
    return bytes;
}

// One entry can feed two variables, and an attribute besides.
unsigned int FilterLogWriter::writeSelected(const DataEntry& entry, const Unit* unit) {
    const unsigned short code = entry.getElementCode();
    const unsigned short bestCode = entry.getBestCode();
    unsigned int bytes = writeVariable(entry, variables_.indexOf(code), unit);
    if (bestCode != code) bytes += writeVariable(entry, variables_.indexOf(bestCode), unit);
    const int attribute = attributes_.indexOf(code);
    return attribute < 0 ? bytes : bytes + writeAtt(&entry, attribute, unit);
}

unsigned int FilterLogWriter::writeVariable(const DataEntry& entry, int index, const Unit* unit) {
    if (index < 0) return 0;
    return writeData(&entry, index, unit == nullptr ? variables_.unit(index) : unit);
}

void FilterLogWriter::endCycle() {
    if (outputTo_ != nullptr) outputTo_->endCycle();
}

// The output sees every footer call: it alone knows whether its footer was written.
unsigned int FilterLogWriter::writeFooter() {
    if (outputTo_ != nullptr && !wroteFooter_) return outputTo_->writeFooter();
    wroteFooter_ = true;
    return 0;
}

void FilterLogWriter::config(Logger& logger) {
    if (outputTo_ != nullptr) outputTo_->config(logger);
}

void FilterLogWriter::resetInputs() {
    if (outputTo_ != nullptr) outputTo_->resetInputs();
    variables_.reset();
    attributes_.reset();
}

unsigned int FilterLogWriter::writeCycleStart(const EventEntry* entry) {
    return outputTo_ == nullptr ? 0 : outputTo_->write(entry, nullptr);
}

unsigned int FilterLogWriter::writeData(const DataEntry* entry, int, const Unit* unit) {
    return outputTo_ == nullptr ? 0 : outputTo_->write(entry, unit);
}

unsigned int FilterLogWriter::writeAtt(const DataEntry* entry, int attIndex, const Unit* unit) {
    return writeData(entry, attIndex, unit);
}

bool FilterLogWriter::initializeFilterLogWriter() {
    const bool variablesKnown = variables_.resolve();
    return attributes_.resolve() && variablesKnown;
}
