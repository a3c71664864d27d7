#pragma once

#include <cstdio>
#include <memory>

#include "io/OutStream.h"
#include "utils/Mutex.h"
#include "utils/Str.h"

// Writes a file. What goes to one that it opens is gathered in a buffer of its own, whose free part is the room that it
// lends; a file that is given to it may have other writers, so everything goes there at once.
// Errors: what the file does not take stays gathered, and is tried again with what comes next.
// Threads: locks each single write; a primitive made of several writes is not atomic.
class FileOutStream final : public OutStream {
public:
    FileOutStream() : FileOutStream(nullptr, false) {}          // no file: writes go nowhere until open
    FileOutStream(const char* path, bool append, bool update);  // as open; a failure shows in isWritable, firstError
    FileOutStream(FILE* file, bool autoClose);  // file may be null; named "unknown"; owned when autoClose
    ~FileOutStream() override;
    FileOutStream(const FileOutStream&) = delete;
    FileOutStream& operator=(const FileOutStream&) = delete;

    using OutStream::write;
    OutStream& write(const char* buf, size_t n) override;
    OutStream& write(const char* s) override;
    bool isWritable() override { return file_ != nullptr; }

    // Closes what is held and opens the path: to write at its end (append), over what is there (update: the file exists
    // and is not cut), or anew. False when that failed.
    bool open(const char* path, bool append, bool update);
    void close();                    // the file, owned or not; standard output and standard error stay open and held
    void flush();                    // hands what is gathered to the system
    static void FlushAll();          // of all streams, without allocating: for a process that has to end at once
    bool seek(unsigned int offset);  // bytes from the start; false with no file or on failure
    int tell();  // bytes from the start; 0 with no file, the greatest int past it, -1 where there are no positions
    const char* getName() override { return filename_.cStr(); }  // the path; until the next open
    // The system's error number of the first open, write, flush or close that failed since the last open, else 0.
    // ENXIO: nobody reads the pipe, which is not waited for.
    int firstError() const { return firstError_; }

protected:
    char* makeRoom(size_t n) override;

private:
    void passOn();  // what is gathered, to the file
    size_t gathered() const { return static_cast<size_t>(room_ - buffer_.get()); }
    void noteError();

    static FileOutStream* First_;  // of all streams
    FileOutStream* next_ = nullptr;
    FileOutStream** link_ = nullptr;  // to it

    FILE* file_;
    bool autoClose_;                  // the file is owned
    std::unique_ptr<char[]> buffer_;  // gathers the bytes of an opened file, up to the room
    Mutex fileMutex_;
    Str filename_;
    int firstError_ = 0;
};
