#pragma once

#include <sys/types.h>

#include "utils/Str.h"

// Which file a path leads to, so that it is known under every path. One that is not there yet is known by the directory
// and the name in which it would be made.
class FileIdentity {
public:
    explicit FileIdentity(const Str& path);

    bool operator==(const FileIdentity& other) const;  // false also when it cannot be told
    bool operator!=(const FileIdentity& other) const { return !(*this == other); }

private:
    bool known_;
    dev_t device_ = 0;  // the file's or, when there is none, the directory's, as is the number
    ino_t number_ = 0;
    Str newName_;  // empty for a file that is there
};
