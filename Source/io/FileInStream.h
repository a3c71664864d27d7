#pragma once

#include <cstdio>
#include <memory>

#include "io/InStream.h"
#include "utils/Mutex.h"
#include "utils/Str.h"

// Reads a standard I/O file. The standard I/O buffer is the only one: its unread bytes are the stream's ready ones.
// Threads: locks each single read; a primitive made of several reads is not atomic.
class FileInStream final : public InStream {
public:
    explicit FileInStream(const char* path);   // a failed open leaves the stream without a file, silently
    FileInStream(FILE* file, bool autoClose);  // may be null; "unknown"; owned, and not read from yet, when autoClose
    ~FileInStream() override;
    FileInStream(const FileInStream&) = delete;
    FileInStream& operator=(const FileInStream&) = delete;

    InStream& read(char* buf, size_t n) override;
    const char* getName() override { return filename_.cStr(); }
    bool isReadable() override { return file_ != nullptr; }
    bool eof() override;      // also true without a file
    virtual void clearErr();  // forgets the end and any error, so that a file that has grown is read on; not readError

    bool seek(unsigned int offset);  // bytes from the start; false with no file or on failure. Ends eof
    bool seekTo(long long offset);   // the same for any 64-bit position
    long long tell();                // bytes from the start; 0 with no file, -1 where there are no positions (a pipe)
    int readError();                 // errno of a failed read since the file was set, else 0
    void close();                    // closes and forgets the file, owned or not
    void setFile(FILE* file, const Str& name, bool autoClose);  // forgets any file held before, closing it if owned

private:
    void hold(FILE* file, bool autoClose);
    void lendReady();    // the file's unread bytes become the stream's ready ones
    void returnReady();  // the file goes on where the ready ones were taken to

    FILE* file_ = nullptr;
    bool autoClose_ = false;          // the file is owned
    std::unique_ptr<char[]> buffer_;  // what standard I/O reads an owned file into
    Mutex fileMutex_;
    Str filename_;
    int readError_ = 0;
};
