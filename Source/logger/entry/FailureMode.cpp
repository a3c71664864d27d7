#include "logger/entry/FailureMode.h"

static const char* const FAIL_TYPE_NAMES[] = {"NONE",        "COMMUNICATIONS", "DATA",     "HARDWARE",
                                              "OVERCURRENT", "PERFORMANCE",    "SOFTWARE", "HEURISTIC"};

const char* FailureMode::ToString(FailType type) {
    return type >= NONE && type <= HEURISTIC ? FAIL_TYPE_NAMES[type] : "(undefined)";
}
