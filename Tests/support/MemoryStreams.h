#pragma once

#include <algorithm>
#include <string>

#include "io/InStream.h"
#include "io/OutStream.h"
#include "utils/Str.h"

// Reads a Str that the test keeps. As with a file, eof() is true once a read came up short.
class MemoryInStream : public InStream {
public:
    explicit MemoryInStream(const Str& bytes) : bytes_(bytes) {}
    explicit MemoryInStream(Str&&) = delete;  // it would be gone before the first read

    InStream& read(char* buf, size_t n) override {
        lastRead_ = std::min(n, bytes_.length() - at_);
        std::copy_n(bytes_.data() + at_, lastRead_, buf);
        at_ += lastRead_;
        totalBytesRead_ += lastRead_;
        ended_ = ended_ || lastRead_ < n;
        return *this;
    }
    const char* getName() override { return "memory"; }
    bool isReadable() override { return true; }
    bool eof() override { return ended_; }

private:
    const Str& bytes_;  // borrowed
    size_t at_ = 0;     // next byte
    bool ended_ = false;
};

// Collects what is written.
class MemoryOutStream : public OutStream {
public:
    using OutStream::write;
    OutStream& write(const char* buf, size_t n) override {
        bytes_.append(buf, n);
        lastWritten_ = n;
        return *this;
    }
    bool isWritable() override { return true; }

    Str str() const { return Str(bytes_.data(), bytes_.size()); }
    Str hex() const { return str().asHex(); }
    void clear() { bytes_.clear(); }

    std::string bytes_;
};
