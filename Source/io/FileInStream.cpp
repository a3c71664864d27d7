#include "io/FileInStream.h"

#include <cerrno>

static const size_t BUFFER_BYTES = 65536;

FileInStream::FileInStream(const char* path) : filename_(path) {
    hold(fopen(path, "rb"), true);
}

FileInStream::FileInStream(FILE* file, bool autoClose) : filename_("unknown") {
    hold(file, autoClose);
}

FileInStream::~FileInStream() {
    if (autoClose_) {
        close();
    } else {
        returnReady();
    }
}

InStream& FileInStream::read(char* buf, size_t n) {
    MutexLocker lock(fileMutex_);
    if (file_ == nullptr) return *this;
    returnReady();
    lastRead_ = fread_unlocked(buf, 1, n, file_);
    totalBytesRead_ += lastRead_;
    if (lastRead_ < n && readError_ == 0 && ferror_unlocked(file_)) readError_ = errno;
    lendReady();
    return *this;
}

bool FileInStream::eof() {
    MutexLocker lock(fileMutex_);
    return file_ == nullptr || feof_unlocked(file_);
}

void FileInStream::clearErr() {
    MutexLocker lock(fileMutex_);
    if (file_ != nullptr) clearerr(file_);
}

bool FileInStream::seek(unsigned int offset) {
    return seekTo(offset);
}

bool FileInStream::seekTo(long long offset) {
    MutexLocker lock(fileMutex_);
    returnReady();
    return file_ != nullptr && fseeko(file_, offset, SEEK_SET) == 0;
}

long long FileInStream::tell() {
    MutexLocker lock(fileMutex_);
    returnReady();
    return file_ == nullptr ? 0 : ftello(file_);
}

int FileInStream::readError() {
    MutexLocker lock(fileMutex_);
    return readError_;
}

void FileInStream::close() {
    MutexLocker lock(fileMutex_);
    returnReady();
    if (file_ != nullptr) fclose(file_);
    file_ = nullptr;
}

void FileInStream::setFile(FILE* file, const Str& name, bool autoClose) {
    MutexLocker lock(fileMutex_);
    if (autoClose_) close();
    returnReady();
    filename_ = name;
    hold(file, autoClose);
}

// A file that outlives the stream must not be left with the stream's buffer.
void FileInStream::hold(FILE* file, bool autoClose) {
    file_ = file;
    autoClose_ = autoClose;
    readError_ = 0;
    if (file == nullptr || !autoClose) return;
    if (buffer_ == nullptr) buffer_.reset(new char[BUFFER_BYTES]);
    setvbuf(file, buffer_.get(), _IOFBF, BUFFER_BYTES);
}

// Both as getc does inline, for more than one byte at a time.
void FileInStream::lendReady() {
    if (!__libc_single_threaded) return;
    ready_ = file_->_IO_read_ptr;
    readyEnd_ = file_->_IO_read_end;
}

void FileInStream::returnReady() {
    if (ready_ != nullptr) file_->_IO_read_ptr = const_cast<char*>(ready_);
    ready_ = readyEnd_ = nullptr;
}
