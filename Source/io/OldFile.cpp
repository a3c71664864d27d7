#include "io/OldFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdio>

#include "utils/Str.h"

namespace {

const int MAX_LINKS = 40;  // in a row, as the system follows them

// What the link says, as seen from where the program runs; the link itself when that cannot be told.
Str TargetOf(const Str& link) {
    char target[PATH_MAX];
    const ssize_t length = readlink(link.cStr(), target, sizeof target);
    if (length < 0) return link;
    const Str text(target, static_cast<size_t>(length));
    return text[0] == '/' ? text : link.substr(0, link.findLastOf('/') + 1) + text;
}

// Links of the process file system lead to what a process holds open, whatever names it has besides.
bool LeadsToOpenFile(Str path) {
    struct stat processes;
    struct stat status;
    if (stat("/proc", &processes) != 0) return false;
    for (int i = 0; i < MAX_LINKS && lstat(path.cStr(), &status) == 0 && S_ISLNK(status.st_mode); ++i) {
        if (status.st_dev == processes.st_dev) return true;
        path = TargetOf(path);
    }
    return false;
}

}  // namespace

bool RemoveOldFile(const char* path) {
    struct stat status;
    if (lstat(path, &status) != 0 || IsWrittenThrough(path)) return false;
    return (S_ISREG(status.st_mode) || S_ISLNK(status.st_mode)) && remove(path) == 0;
}

bool IsWrittenThrough(const char* path) {
    struct stat status;
    if (stat(path, &status) != 0 || S_ISDIR(status.st_mode)) return false;
    return !S_ISREG(status.st_mode) || LeadsToOpenFile(path);
}

bool IsPipe(const char* path) {
    struct stat status;
    return stat(path, &status) == 0 && S_ISFIFO(status.st_mode);
}
