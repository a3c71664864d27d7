#include "logger/engine/LogWriter.h"

#include <cstring>

const char* const LogWriter::SERVICE_TYPE_STRS[SERVICE_COUNT] = {"Direct",   "Courier", "Express",
                                                                 "Priority", "Normal",  "Bulk"};

const size_t LogWriter::SERVICE_TYPE_STRLEN[SERVICE_COUNT] = {
    strlen(SERVICE_TYPE_STRS[SERVICE_DIRECT]),  strlen(SERVICE_TYPE_STRS[SERVICE_COURIER]),
    strlen(SERVICE_TYPE_STRS[SERVICE_EXPRESS]), strlen(SERVICE_TYPE_STRS[SERVICE_PRIORITY]),
    strlen(SERVICE_TYPE_STRS[SERVICE_NORMAL]),  strlen(SERVICE_TYPE_STRS[SERVICE_BULK]),
};

namespace {
bool HasWord(LogWriter::ServiceType type) {
    return type > LogWriter::NO_SERVICE && type < LogWriter::SERVICE_COUNT;
}
}  // namespace

void LogWriter::Release(LogWriter* writer) {
    if (writer == nullptr) return;
    writer->removeParent();
    if (writer->getParentCount() < 1) delete writer;
}

const char* LogWriter::ServiceType2Str(ServiceType type) {
    return HasWord(type) ? SERVICE_TYPE_STRS[type] : "none.";
}

size_t LogWriter::ServiceType2Strlen(ServiceType type) {
    return HasWord(type) ? SERVICE_TYPE_STRLEN[type] : 0;
}

LogWriter::ServiceType LogWriter::Str2ServiceType(const char* text, int length) {
    for (int type = SERVICE_DIRECT; type < SERVICE_COUNT; ++type) {
        if (length >= 0 && static_cast<size_t>(length) == SERVICE_TYPE_STRLEN[type] &&
            memcmp(text, SERVICE_TYPE_STRS[type], SERVICE_TYPE_STRLEN[type]) == 0) {
            return static_cast<ServiceType>(type);
        }
    }
    return NO_SERVICE;
}
