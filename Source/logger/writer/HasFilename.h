#pragma once

#include "utils/Str.h"

// A writer that has a file of its own.
class HasFilename {
public:
    virtual ~HasFilename() {}
    virtual const Str& getFilename() = 0;  // empty when it writes to no named file
};
