#include "io/OldFile.h"

#include <sys/stat.h>

#include <cstdio>

void RemoveOldFile(const char* path) {
    struct stat status;
    if (lstat(path, &status) == 0 && (S_ISREG(status.st_mode) || S_ISLNK(status.st_mode))) remove(path);
}

bool IsDevice(const char* path) {
    struct stat status;
    return stat(path, &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}
