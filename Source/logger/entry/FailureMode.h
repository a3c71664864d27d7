#pragma once

// How a component failed; the numbers are those of the log.
class FailureMode {
public:
    enum FailType : int {
        NONE = 0,
        COMMUNICATIONS = 1,
        DATA = 2,
        HARDWARE = 3,
        OVERCURRENT = 4,
        PERFORMANCE = 5,
        SOFTWARE = 6,
        HEURISTIC = 7,
    };
    static const char* ToString(FailType type);  // the enumerator's name, "(undefined)" for any other number
};
