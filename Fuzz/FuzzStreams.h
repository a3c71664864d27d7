#pragma once

#include <algorithm>
#include <cstdint>

#include "io/InStream.h"
#include "io/OutStream.h"

// Reads the bytes that a fuzz target was given. As with a file, eof() is true once a read came up short.
class BytesInStream : public InStream {
public:
    BytesInStream(const uint8_t* bytes, size_t size) : bytes_(bytes), size_(size) {}

    InStream& read(char* buf, size_t n) override {
        lastRead_ = std::min(n, size_ - at_);
        std::copy_n(bytes_ + at_, lastRead_, buf);
        at_ += lastRead_;
        totalBytesRead_ += lastRead_;
        ended_ = ended_ || lastRead_ < n;
        return *this;
    }
    const char* getName() override { return "fuzzed"; }
    bool isReadable() override { return true; }
    bool eof() override { return ended_; }

    size_t at() const { return at_; }
    void seek(size_t position) { at_ = std::min(position, size_); }

private:
    const uint8_t* const bytes_;  // borrowed
    const size_t size_;
    size_t at_ = 0;  // next byte
    bool ended_ = false;
};

// Takes everything and keeps nothing.
class NullOutStream : public OutStream {
public:
    using OutStream::write;
    OutStream& write(const char*, size_t n) override {
        lastWritten_ = n;
        return *this;
    }
    bool isWritable() override { return true; }
};
