#include "logger/writer/OutputOutcome.h"

#include "data/Slate.h"

void OutputOutcome::fail(const char* failedTo, const Str& filename, const char* reason) {
    if (isWhole()) Slate::GetLogger().fileFailure(failedTo, filename, reason);
    fail();
}
