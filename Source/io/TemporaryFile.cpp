#include "io/TemporaryFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

static bool IsPlainFile(const char* path) {
    struct stat status;
    return stat(path, &status) == 0 && S_ISREG(status.st_mode);
}

static Str FolderOf(const Str& path) {
    const size_t slash = path.findLastOf('/');
    return slash >= path.length() ? Str(".") : path.substr(0, slash + 1);
}

TemporaryFile::~TemporaryFile() {
    if (isOpen()) close(file_);
}

bool TemporaryFile::open(const Str& neighbour) {
    if (IsPlainFile(neighbour.cStr()) && openIn(FolderOf(neighbour))) return true;
    const char* const chosen = getenv("TMPDIR");
    if (chosen != nullptr && *chosen != '\0' && openIn(chosen)) return true;
    return openIn("/var/tmp") || openIn("/tmp");
}

bool TemporaryFile::openIn(const Str& folder) {
    folder_ = folder;
    char name[PATH_MAX];
    errno = ENAMETOOLONG;
    if (snprintf(name, sizeof name, "%s/slate.XXXXXX", folder.cStr()) >= PATH_MAX) return false;
    file_ = mkostemp(name, O_CLOEXEC);
    if (isOpen()) unlink(name);
    return isOpen();
}

bool TemporaryFile::write(off_t place, const void* bytes, size_t length) {
    const char* const from = static_cast<const char*>(bytes);
    for (size_t done = 0; done < length;) {
        const ssize_t count = pwrite(file_, from + done, length - done, place + static_cast<off_t>(done));
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) done += static_cast<size_t>(count);
    }
    length_ = std::max(length_, place + static_cast<off_t>(length));
    return true;
}

bool TemporaryFile::read(off_t place, void* bytes, size_t length) const {
    char* const to = static_cast<char*>(bytes);
    for (size_t done = 0; done < length;) {
        const ssize_t count = pread(file_, to + done, length - done, place + static_cast<off_t>(done));
        if (count == 0) errno = EIO;  // it was cut from outside
        if (count == 0 || (count < 0 && errno != EINTR)) return false;
        if (count > 0) done += static_cast<size_t>(count);
    }
    return true;
}
