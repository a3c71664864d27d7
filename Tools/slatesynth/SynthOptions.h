#pragma once

#include <cstdint>

#include "utils/Str.h"

// What the user asked for.
struct SynthOptions {
    uint64_t seed_ = 1;
    double minutes_ = 30;   // of vehicle time; without meaning when megabytes_ is set
    double megabytes_ = 0;  // of 1048576 bytes over all parts; 0: the minutes count
    int version_ = 8;
    int parts_ = 0;             // 0: one file without a number
    unsigned int damages_ = 0;  // places
    Str output_;
};

enum class Request { RUN, HELP, REFUSE };

// Reads the arguments into options, which keep what is not given. HELP: the user asked for the help text. REFUSE: error
// tells what cannot be done.
Request ParseArguments(int argc, char** argv, SynthOptions& options, Str& error);

extern const char* const HELP_TEXT;
