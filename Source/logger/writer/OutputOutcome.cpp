#include "logger/writer/OutputOutcome.h"

#include "data/Log.h"

void OutputOutcome::fail(const char* failedTo, const Str& filename, const char* reason) {
    if (isWhole()) Log::Current().getLogger().fileFailure(failedTo, filename, reason);
    fail();
}
