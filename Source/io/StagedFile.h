#pragma once

#include "utils/Str.h"

// Lets a file take its place only when it is whole: until then it has a name of its own beside that place, and what
// stands there stays. Where nothing can be created beside it, and where no plain file is to be replaced, the place
// itself is written to.
class StagedFile {
public:
    explicit StagedFile(const Str& place);
    ~StagedFile();  // removes what was not put in place
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    const Str& place() const { return place_; }
    const Str& name() const { return name_; }  // where to write
    bool putInPlace();                         // false, and errno says why, when the place cannot be taken

private:
    const Str place_;
    const Str name_;
    bool isInPlace_ = false;
};
