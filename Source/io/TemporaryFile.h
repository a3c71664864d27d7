#pragma once

#include <sys/types.h>

#include <cstddef>

#include "utils/Str.h"

// A file for what memory has no room for. It has no name: nobody else finds it, and it is gone with the process,
// however that ends. Errors: what failed tells false, and errno why.
class TemporaryFile {
public:
    TemporaryFile() = default;
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    // In the folder of a plain file, or, where there is none or it takes no file, in TMPDIR, which is /tmp unless set.
    bool open(const Str& neighbour);
    bool isOpen() const { return file_ >= 0; }
    const Str& folder() const { return folder_; }  // the last one tried

    bool append(const void* bytes, size_t length);             // all or nothing
    bool read(off_t place, void* bytes, size_t length) const;  // exactly so many
    off_t length() const { return length_; }

private:
    bool openIn(const Str& folder);

    int file_ = -1;
    Str folder_;
    off_t length_ = 0;  // bytes
};
