#include "io/FileInStream.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

static const size_t BUFFER_BYTES = 65536;

FileInStream::FileInStream(const char* path) : filename_(path) {
    hold(fopen(path, "rb"), true);
}

FileInStream::FileInStream(FILE* file, bool autoClose) : filename_("unknown") {
    hold(file, autoClose);
}

FileInStream::~FileInStream() {
    if (autoClose_) close();
}

InStream& FileInStream::read(char* buf, size_t n) {
    MutexLocker lock(fileMutex_);
    if (file_ == nullptr) return *this;
    lastRead_ = isBuffered() ? readBuffered(buf, n) : readUnbuffered(buf, n);
    totalBytesRead_ += lastRead_;
    return *this;
}

size_t FileInStream::readBuffered(char* buf, size_t n) {
    size_t got = 0;
    while (got < n && (next_ != bufferEnd_ || fill())) {
        const size_t piece = std::min(n - got, static_cast<size_t>(bufferEnd_ - next_));
        std::copy_n(next_, piece, buf + got);
        next_ += piece;
        got += piece;
    }
    return got;
}

size_t FileInStream::readUnbuffered(char* buf, size_t n) {
    const size_t got = fread_unlocked(buf, 1, n, file_);
    if (got < n && ferror_unlocked(file_)) noteError();
    return got;
}

// Asks the system once: a pipe gives what it has and is not waited for until its writer has filled the buffer.
bool FileInStream::fill() {
    if (metEnd_) return false;
    const ssize_t n = ::read(descriptor_, buffer_.get(), BUFFER_BYTES);
    if (n < 0) noteError();
    metEnd_ = n == 0;
    if (n <= 0) return false;
    next_ = buffer_.get();
    bufferEnd_ = next_ + n;
    if (positionOfEnd_ != NO_POSITION) positionOfEnd_ += n;
    return true;
}

void FileInStream::noteError() {
    if (readError_ == 0) readError_ = errno;
}

ByteCursor FileInStream::lend() {
    fileMutex_.lock();
    if (isBuffered() && next_ == bufferEnd_) fill();
    return ByteCursor(next_, bufferEnd_);
}

void FileInStream::takeBack(const char* keptEnd) {
    lastRead_ = static_cast<size_t>(keptEnd - next_);
    totalBytesRead_ += lastRead_;
    next_ = keptEnd;
    fileMutex_.unlock();
}

bool FileInStream::eof() {
    MutexLocker lock(fileMutex_);
    return file_ == nullptr || (isBuffered() ? metEnd_ : feof_unlocked(file_) != 0);
}

void FileInStream::clearErr() {
    MutexLocker lock(fileMutex_);
    metEnd_ = false;
    if (file_ != nullptr) clearerr(file_);
}

bool FileInStream::seek(unsigned int offset) {
    return seekTo(offset);
}

bool FileInStream::seekTo(long long offset) {
    MutexLocker lock(fileMutex_);
    if (file_ == nullptr) return false;
    if (!isBuffered()) return fseeko(file_, offset, SEEK_SET) == 0;
    if (seekInBuffer(offset)) return true;
    if (lseek(descriptor_, offset, SEEK_SET) < 0) return false;
    emptyBuffer(offset);
    return true;
}

bool FileInStream::seekInBuffer(long long offset) {
    const long long back = positionOfEnd_ - offset;
    if (positionOfEnd_ == NO_POSITION || back < 0 || back > bufferEnd_ - buffer_.get()) return false;
    next_ = bufferEnd_ - back;
    metEnd_ = false;
    return true;
}

long long FileInStream::tell() {
    MutexLocker lock(fileMutex_);
    if (file_ == nullptr) return 0;
    if (!isBuffered()) return ftello(file_);
    return positionOfEnd_ == NO_POSITION ? NO_POSITION : positionOfEnd_ - (bufferEnd_ - next_);
}

int FileInStream::readError() {
    MutexLocker lock(fileMutex_);
    return readError_;
}

void FileInStream::close() {
    MutexLocker lock(fileMutex_);
    if (file_ != nullptr) fclose(file_);
    file_ = nullptr;
    descriptor_ = NO_DESCRIPTOR;
    emptyBuffer(0);
}

void FileInStream::setFile(FILE* file, const Str& name, bool autoClose) {
    MutexLocker lock(fileMutex_);
    if (autoClose_) close();
    filename_ = name;
    hold(file, autoClose);
}

// What standard I/O may have read ahead of an owned file is given back first. A file that is none of the system's, but
// memory, has no descriptor.
void FileInStream::hold(FILE* file, bool autoClose) {
    file_ = file;
    autoClose_ = autoClose;
    readError_ = 0;
    descriptor_ = file != nullptr && autoClose ? fileno(file) : NO_DESCRIPTOR;
    if (isBuffered() && buffer_ == nullptr) buffer_.reset(new char[BUFFER_BYTES]);
    if (isBuffered()) fflush(file);
    emptyBuffer(isBuffered() ? lseek(descriptor_, 0, SEEK_CUR) : 0);
}

void FileInStream::emptyBuffer(long long position) {
    next_ = bufferEnd_ = buffer_.get();
    positionOfEnd_ = position;
    metEnd_ = false;
}
