#include "io/FileOutStream.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstring>

#include "io/OldFile.h"

static const size_t BUFFER_BYTES = 1048576;

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

// Straight into the standard I/O buffer, as putc does inline, for more than one byte at a time. Bytes written.
// A file that nothing was written to has no room yet, and one that is flushed at each line, as a terminal, never has:
// its pointer goes beyond the end of the room.
static size_t Write(const char* buf, size_t n, FILE* file) {
    const ptrdiff_t room = file->_IO_write_end - file->_IO_write_ptr;
    if (room <= 0 || n >= static_cast<size_t>(room)) return fwrite_unlocked(buf, 1, n, file);
    memcpy(file->_IO_write_ptr, buf, n);
    file->_IO_write_ptr += n;
    return n;
}

FileOutStream::FileOutStream(const char* path, bool append, bool update) : FileOutStream(nullptr, true) {
    open(path, append, update);
}

FileOutStream::FileOutStream(FILE* file, bool autoClose) : file_(file), autoClose_(autoClose), filename_("unknown") {}

FileOutStream::~FileOutStream() {
    if (autoClose_) close();
}

OutStream& FileOutStream::write(const char* buf, size_t n) {
    MutexLocker lock(fileMutex_);
    if (file_ == nullptr) return *this;
    lastWritten_ = Write(buf, n, file_);
    if (lastWritten_ < n) noteError();
    return *this;
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
    if (buffer_ == nullptr) buffer_.reset(new char[BUFFER_BYTES]);
    setvbuf(file_, buffer_.get(), _IOFBF, BUFFER_BYTES);
    return true;
}

void FileOutStream::close() {
    MutexLocker lock(fileMutex_);
    flush();
    if (file_ == nullptr || IsStandard(file_)) return;
    if (fclose(file_) != 0) noteError();
    file_ = nullptr;
}

void FileOutStream::flush() {
    MutexLocker lock(fileMutex_);
    if (file_ != nullptr && fflush(file_) != 0) noteError();
}

bool FileOutStream::seek(unsigned int offset) {
    MutexLocker lock(fileMutex_);
    if (file_ == nullptr) return false;
    const bool done = fseeko(file_, offset, SEEK_SET) == 0;
    if (!done && ferror(file_)) noteError();  // it could not write out what was gathered
    return done;
}

int FileOutStream::tell() {
    MutexLocker lock(fileMutex_);
    return file_ == nullptr ? 0 : static_cast<int>(std::min<off_t>(ftello(file_), INT_MAX));
}

void FileOutStream::noteError() {
    if (firstError_ == 0) firstError_ = errno;
}
