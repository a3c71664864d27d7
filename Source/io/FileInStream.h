#pragma once

#include <cstdio>
#include <memory>

#include "io/InStream.h"
#include "utils/Mutex.h"
#include "utils/Str.h"

// Reads a file. Of a file that it owns the stream reads ahead into a buffer of its own, as much as there is at that
// moment, and lends what stands there; a borrowed one is read by standard I/O, byte for byte as asked.
// Threads: locks each single read, and for as long as bytes are lent; a primitive made of several reads is not atomic.
class FileInStream final : public InStream {
public:
    explicit FileInStream(const char* path);   // a failed open leaves the stream without a file, silently
    FileInStream(FILE* file, bool autoClose);  // may be null; "unknown"; owned when autoClose
    ~FileInStream() override;
    FileInStream(const FileInStream&) = delete;
    FileInStream& operator=(const FileInStream&) = delete;

    InStream& read(char* buf, size_t n) override;
    const char* getName() override { return filename_.cStr(); }
    bool isReadable() override { return file_ != nullptr; }
    bool eof() override;  // also true without a file
    bool hasFailed() override { return readError() != 0; }
    virtual void clearErr();  // forgets the end and any error, so that a file that has grown is read on; not readError

    bool seek(unsigned int offset);  // bytes from the start; false with no file or on failure. Ends eof
    bool seekTo(long long offset);   // the same for any 64-bit position
    long long tell();                // bytes from the start; 0 with no file, -1 where there are no positions (a pipe)
    int readError();                 // errno of a failed read since the file was set, else 0
    void close();                    // closes and forgets the file, owned or not
    void setFile(FILE* file, const Str& name, bool autoClose);  // forgets any file held before, closing it if owned

private:
    static constexpr int NO_DESCRIPTOR = -1;
    static constexpr long long NO_POSITION = -1;  // of a pipe

    void hold(FILE* file, bool autoClose);
    bool isBuffered() const { return descriptor_ != NO_DESCRIPTOR; }
    size_t readBuffered(char* buf, size_t n);
    size_t readUnbuffered(char* buf, size_t n);
    bool fill();
    void emptyBuffer(long long position);
    bool seekInBuffer(long long offset);
    void noteError();
    ByteCursor lend() override;
    void takeBack(const char* keptEnd) override;

    FILE* file_ = nullptr;
    bool autoClose_ = false;           // the file is owned
    int descriptor_ = NO_DESCRIPTOR;   // the file's, where the buffer is used
    std::unique_ptr<char[]> buffer_;   // made with the first file that is owned
    const char* next_ = nullptr;       // the buffer's first byte that was not read yet
    const char* bufferEnd_ = nullptr;  // after its last
    long long positionOfEnd_ = 0;      // of bufferEnd_ in the file
    bool metEnd_ = false;
    Mutex fileMutex_;
    Str filename_;
    int readError_ = 0;
};
