#pragma once

#include <cstdio>
#include <memory>

#include "io/OutStream.h"
#include "utils/Mutex.h"
#include "utils/Str.h"

// Writes a standard I/O file through a large standard I/O buffer.
// Threads: locks each single write; a primitive made of several writes is not atomic.
class FileOutStream : public OutStream {
public:
    FileOutStream() : FileOutStream(nullptr, false) {}
    FileOutStream(const char* path, bool append, bool update);
    FileOutStream(FILE* file, bool autoClose);  // file may be null; named "unknown"; owned when autoClose
    ~FileOutStream() override;
    FileOutStream(const FileOutStream&) = delete;
    FileOutStream& operator=(const FileOutStream&) = delete;

    using OutStream::write;
    OutStream& write(const char* buf, size_t n) override;
    OutStream& write(const char* s) override;
    bool isWritable() override { return file_ != nullptr; }

    bool open(const char* path, bool append, bool update);  // closes first; update: an existing file, not truncated
    void close();                                           // standard output and standard error stay open and held
    void flush();
    bool seek(unsigned int offset);
    int tell();  // 0 with no file; the greatest int past it
    const char* getName() override { return filename_.cStr(); }
    // The system's error number of the first open, write, flush or close that failed since the last open, else 0.
    int firstError() const { return firstError_; }

private:
    void noteError();

    FILE* file_;
    bool autoClose_;                  // the file is owned
    std::unique_ptr<char[]> buffer_;  // what standard I/O gathers the bytes of an opened file in
    Mutex fileMutex_;
    Str filename_;
    int firstError_ = 0;
};
