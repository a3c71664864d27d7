#include "logger/writer/json/SampleStore.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

void SampleStore::refuse(int error, const char* where) {
    if (!isRefused()) failure_ = Str(where) + strerror(error);
}

void SampleStore::refuseFile() {
    refuse(errno, ("a temporary file in " + file_.folder() + ": ").cStr());
}

bool SampleStore::moveToFile() {
    if (isRefused()) return false;
    bool isMoved = file_.isOpen() || file_.open(neighbour_);
    for (unsigned int i = 0; isMoved && i < series_.size(); ++i) isMoved = series_.at(i)->moveTo(file_);
    if (isMoved) held_ = 0;
    if (!isMoved) refuseFile();
    return isMoved;
}

// A tail grows by half.
void SampleStore::appendAndGrow(RefusableBytes& tail, const void* bytes, size_t length) {
    if (held_ + tail.room() / 2 + length > memory_) moveToFile();
    if (isRefused() || append(tail, bytes, length)) return;
    if (moveToFile() && !append(tail, bytes, length)) refuse(ENOMEM);
}

bool SampleStore::append(RefusableBytes& tail, const void* bytes, size_t length) {
    const size_t before = tail.room();
    tail.append(bytes, length);
    held_ += tail.room() - before;
    return !tail.isRefused();
}

bool SampleStore::read(off_t place, void* bytes, size_t length) {
    const bool isRead = file_.read(place, bytes, length);
    if (!isRead) refuseFile();
    return isRead;
}

void SampleSeries::cutTo(size_t length) {
    tail_.cutTo(length - std::min(length, inFile_));
    inFile_ = std::min(length, inFile_);
}

bool SampleSeries::moveTo(TemporaryFile& file) {
    if (tail_.length() == 0) return true;
    const Segment segment = {inFile_, file.length()};
    if (!file.append(tail_.data(), tail_.length())) return false;
    segments_.append(&segment, sizeof segment);
    errno = ENOMEM;
    if (segments_.isRefused()) return false;
    inFile_ += tail_.length();
    tail_.clear();
    return true;
}

size_t SampleSeries::read(size_t place, char* bytes, size_t length) {
    length = std::min(length, this->length() - place);
    if (place >= inFile_) {
        if (length > 0) memcpy(bytes, tail_.data() + (place - inFile_), length);
        return length;
    }
    const Segment* const last = segments() + segments_.length() / sizeof(Segment);
    const Segment* const next = std::upper_bound(segments(), last, place,
                                                 [](size_t at, const Segment& segment) { return at < segment.begin_; });
    const Segment& segment = next[-1];
    length = std::min(length, (next == last ? inFile_ : std::min(next->begin_, inFile_)) - place);
    return store_.read(segment.place_ + static_cast<off_t>(place - segment.begin_), bytes, length) ? length : 0;
}
