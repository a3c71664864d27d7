#include "io/StagedFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

#include "io/OldFile.h"

// A name that no file has. On a full disk too there is one, which then fails to open: the place is not to be emptied.
static Str NameBeside(const Str& place) {
    struct stat status;
    const bool isTaken = stat(place.cStr(), &status) == 0 && !S_ISREG(status.st_mode);
    if (isTaken || IsWrittenThrough(place.cStr())) return place;
    char name[PATH_MAX];
    errno = 0;
    const int length = snprintf(name, sizeof name, "%s.XXXXXX", place.cStr());
    const int file = length < PATH_MAX ? mkstemp(name) : -1;
    if (file >= 0) {
        close(file);
        remove(name);  // the writer makes it again, with the rights that files have
        return name;
    }
    return errno == ENOSPC || errno == EDQUOT ? Str(name) : place;
}

StagedFile::StagedFile(const Str& place) : place_(place), name_(NameBeside(place)) {}

StagedFile::~StagedFile() {
    if (!isInPlace_) RemoveOldFile(name_.cStr());
}

bool StagedFile::putInPlace() {
    isInPlace_ = name_ == place_ || rename(name_.cStr(), place_.cStr()) == 0;
    return isInPlace_;
}
