#pragma once

#include <sys/resource.h>

#include <cstdlib>

#include "TempDir.h"

// As long as it lives, no file grows past so many bytes: a full disk, for this process and those that it starts.
// Built for coverage, those would break off in the midst of their counts, and say so: their counts are thrown away.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        setenv("GCOV_PREFIX", counts_.path("").c_str(), 1);
        setenv("GCOV_ERROR_FILE", "/dev/null", 1);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        unsetenv("GCOV_ERROR_FILE");
        unsetenv("GCOV_PREFIX");
        setrlimit(RLIMIT_FSIZE, &before_);
    }

private:
    rlimit before_;
    const TempDir counts_;
};
