#include "io/FileIdentity.h"

#include <sys/stat.h>

FileIdentity::FileIdentity(const Str& path) {
    struct stat status = {};
    known_ = stat(path.cStr(), &status) == 0;
    if (!known_) {
        const size_t nameStart = path.findLastOf('/') + 1;  // 0 when there is no directory
        newName_ = path.substr(nameStart);
        const Str directory = nameStart == 0 ? Str(".") : path.substr(0, nameStart);
        known_ = stat(directory.cStr(), &status) == 0;
    }
    device_ = status.st_dev;
    number_ = status.st_ino;
}

bool FileIdentity::operator==(const FileIdentity& other) const {
    return known_ && other.known_ && device_ == other.device_ && number_ == other.number_ && newName_ == other.newName_;
}
