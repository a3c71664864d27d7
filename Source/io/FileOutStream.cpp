#include "io/FileOutStream.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstring>

#include "io/OldFile.h"

// Few enough to be in the processor's cache still when the system takes them.
static const size_t BUFFER_BYTES = 262144;

FileOutStream* FileOutStream::First_ = nullptr;

static Mutex& ListMutex() {
    static Mutex mutex;
    return mutex;
}

static bool IsStandard(const FILE* file) {
    return file == stdout || file == stderr;
}

static const char* OpenMode(bool append, bool update) {
    if (append) return "ab";
    return update ? "r+b" : "wb";
}

// A pipe that nobody reads is refused, with ENXIO, instead of waited for.
static FILE* OpenPipe(const char* path) {
    const int pipe = open(path, O_WRONLY | O_NONBLOCK);
    if (pipe < 0) return nullptr;
    fcntl(pipe, F_SETFL, 0);  // from here on it takes its time
    return fdopen(pipe, OpenMode(false, false));
}

FileOutStream::FileOutStream(const char* path, bool append, bool update) : FileOutStream(nullptr, true) {
    open(path, append, update);
}

FileOutStream::FileOutStream(FILE* file, bool autoClose) : file_(file), autoClose_(autoClose), filename_("unknown") {
    MutexLocker lock(ListMutex());
    next_ = First_;
    if (next_ != nullptr) next_->link_ = &next_;
    link_ = &First_;
    First_ = this;
}

FileOutStream::~FileOutStream() {
    if (autoClose_) close();
    MutexLocker lock(ListMutex());
    *link_ = next_;
    if (next_ != nullptr) next_->link_ = link_;
}

void FileOutStream::FlushAll() {
    MutexLocker lock(ListMutex());
    for (FileOutStream* stream = First_; stream != nullptr; stream = stream->next_) stream->flush();
}

OutStream& FileOutStream::write(const char* buf, size_t n) {
    MutexLocker lock(fileMutex_);
    if (file_ == nullptr) return *this;
    if (char* const at = makeRoom(n)) {
        memcpy(at, buf, n);
        putUpTo(at + n);
        return *this;
    }
    lastWritten_ = gathered() > 0 ? 0 : fwrite_unlocked(buf, 1, n, file_);
    if (lastWritten_ < n) noteError();
    return *this;
}

char* FileOutStream::makeRoom(size_t n) {
    MutexLocker lock(fileMutex_);
    if (n > room()) passOn();
    return n <= room() ? room_ : nullptr;
}

void FileOutStream::passOn() {
    const size_t count = gathered();
    const size_t taken = count == 0 ? 0 : fwrite_unlocked(buffer_.get(), 1, count, file_);
    if (taken < count) noteError();
    std::copy(buffer_.get() + taken, room_, buffer_.get());
    room_ -= taken;
}

OutStream& FileOutStream::write(const char* s) {
    return write(s, strlen(s));
}

bool FileOutStream::open(const char* path, bool append, bool update) {
    MutexLocker lock(fileMutex_);
    close();
    firstError_ = 0;
    filename_ = path;
    autoClose_ = true;
    file_ = IsPipe(path) ? OpenPipe(path) : fopen(path, OpenMode(append, update));
    if (file_ == nullptr) {
        noteError();
        return false;
    }
    setvbuf(file_, nullptr, _IONBF, 0);
    if (buffer_ == nullptr) buffer_.reset(new char[BUFFER_BYTES]);
    room_ = buffer_.get();
    roomEnd_ = room_ + BUFFER_BYTES;
    return true;
}

void FileOutStream::close() {
    MutexLocker lock(fileMutex_);
    flush();
    if (file_ == nullptr || IsStandard(file_)) return;
    if (fclose(file_) != 0) noteError();
    file_ = nullptr;
    room_ = roomEnd_ = buffer_.get();
}

void FileOutStream::flush() {
    MutexLocker lock(fileMutex_);
    passOn();
    if (file_ != nullptr && fflush(file_) != 0) noteError();
}

bool FileOutStream::seek(unsigned int offset) {
    MutexLocker lock(fileMutex_);
    passOn();
    if (file_ == nullptr || gathered() > 0) return false;
    const bool done = fseeko(file_, offset, SEEK_SET) == 0;
    if (!done && ferror(file_)) noteError();  // it could not write out what a given file had gathered itself
    return done;
}

int FileOutStream::tell() {
    MutexLocker lock(fileMutex_);
    const off_t passedOn = file_ == nullptr ? 0 : ftello(file_);
    return passedOn < 0 ? -1 : static_cast<int>(std::min<off_t>(passedOn + static_cast<off_t>(gathered()), INT_MAX));
}

void FileOutStream::noteError() {
    if (firstError_ == 0) firstError_ = errno;
}
