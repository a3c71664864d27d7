#include "logger/writer/PaddingLimit.h"

#include <algorithm>

#include "data/BlobValue.h"
#include "data/Logger.h"
#include "logger/entry/DataEntry.h"

static const unsigned long long FREE_BYTES = 268435456;
static const unsigned long long PER_BYTE = 100;
static const size_t ENTRY_BYTES = 4;  // of an entry without its value, about

bool PaddingLimit::admits(const DataEntry& entry, size_t room, size_t elements) {
    const DataValue* const value = entry.getDataValue();
    brought_ += ENTRY_BYTES + (entry.isChanged() && value != nullptr ? value->getTypeSize() : 0);
    const BlobValue* const blob = elements == 0 ? nullptr : dynamic_cast<const BlobValue*>(value);
    const size_t present = blob == nullptr ? 0 : std::min(blob->getCount(), elements);
    if (present == elements) return true;
    const unsigned long long padded = room / elements * (elements - present);
    if (padded_ + padded > FREE_BYTES + PER_BYTE * brought_) return false;
    padded_ += padded;
    return true;
}

void PaddingLimit::report(const char* file, const char* name, const Logger& logger) {
    if (reported_) return;
    reported_ = true;
    logger.syslog(Str("Not all samples are in ") + file + ": arrays such as " + name +
                      " have dimensions that are far larger than what the log holds of them",
                  Syslog::ERROR);
}
