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

    // In the first folder that takes it: that of a plain file, TMPDIR, /var/tmp (which unlike /tmp is seldom kept in
    // memory), /tmp.
    bool open(const Str& neighbour);
    bool isOpen() const { return file_ >= 0; }
    const Str& folder() const { return folder_; }  // the last one tried

    // All, or as if nothing had been written behind the end.
    bool write(off_t place, const void* bytes, size_t length);
    bool append(const void* bytes, size_t length) { return write(length_, bytes, length); }
    bool read(off_t place, void* bytes, size_t length) const;  // exactly so many
    off_t length() const { return length_; }

private:
    bool openIn(const Str& folder);

    int file_ = -1;
    Str folder_;
    off_t length_ = 0;  // bytes
};
