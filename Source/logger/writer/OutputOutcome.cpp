#include "logger/writer/OutputOutcome.h"

#include "data/Logger.h"

void OutputOutcome::fail(const char* failedTo, const Str& filename, const char* reason, const Logger& logger) {
    if (isWhole()) logger.fileFailure(failedTo, filename, reason);
    fail();
}
