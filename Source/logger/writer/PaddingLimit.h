#pragma once

#include <cstddef>

class DataEntry;
class Logger;

// Keeps the arrays of an output in proportion to the log. An array that does not fill its dimensions is padded up to
// them, and the dimensions are but a claim in the log's directory: a sample of no byte at all may claim 65535. What
// is padded may come to 256 MB and, besides, to a hundred times the bytes that the samples had in the log; samples that
// would pass this are left out.
class PaddingLimit {
public:
    // Whether the sample may be written, which is noted. room: bytes that it takes of the output beyond what is taken
    // already; elements: of the array that is made of it, 0 for no array.
    bool admits(const DataEntry& entry, size_t room, size_t elements);
    // Says once, as an ERROR, that samples such as those of the name are not in the file.
    void report(const char* file, const char* name, const Logger& logger);

private:
    unsigned long long brought_ = 0;  // bytes of the samples in the log
    unsigned long long padded_ = 0;   // bytes of the output
    bool reported_ = false;
};
