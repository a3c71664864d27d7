#include "logger/writer/decimation/DecimationLogWriter.h"

#include "data/DataValue.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/EventEntry.h"

DecimationLogWriter::DecimationLogWriter(LogWriter& outputTo, DecimationType type, const Str& varName, bool cycleStarts,
                                         Logger&)
    : outputTo_(outputTo),
      varName_(varName),
      type_(type),
      cycleStarts_(cycleStarts),
      cycleTime_(Timestamp::NOT_SET_TIME) {}

unsigned int DecimationLogWriter::write(const LogEntry* entry, const Unit* unit) {
    if (entry == nullptr) return 0;
    if (entry->getType() == LogEntry::DATA_LOG_ENTRY) return sample(static_cast<const DataEntry&>(*entry), unit);
    if (EventEntry::IsCycleStart(*entry)) {
        cycleTime_ = entry->getTimestamp();
        cycleStartPending_ = cycleStarts_;
    }
    return 0;
}

void DecimationLogWriter::setParameter(DataValue* value, Logger&) {
    delete value;
}

unsigned int DecimationLogWriter::passOn(const DataEntry& entry, const Unit* unit) {
    unsigned int bytes = 0;
    if (cycleStartPending_) {
        const EventEntry cycleStart(cycleTime_);
        bytes += outputTo_.write(&cycleStart, nullptr);
        cycleStartPending_ = false;
    }
    return bytes + outputTo_.write(&entry, unit);
}
