#pragma once

#include <sys/single_threaded.h>

#include <cstddef>
#include <cstring>

// A source of bytes in the log's little-endian forms. Every primitive returns the stream, so that calls chain.
// Errors: nothing is printed. At the end of data a primitive stops, leaves its destination partly written, and eof()
// is true; bytesRead() tells what the last primitive moved.
// Counting: only getTotalBytesRead() is exact after a compact read; bytesRead() then holds the last underlying read
// plus the encoded length.
class InStream {
public:
    virtual ~InStream() {}
    virtual InStream& read(char* buf, size_t n) = 0;  // at most n bytes into the caller's buf
    virtual const char* getName() = 0;
    virtual bool isReadable() = 0;
    // A text line without its CR or LF, NUL-terminated, of at most size - 1 bytes; a line feed that comes first is the
    // second half of a CR LF and is skipped.
    virtual InStream& readLine(char* buf, unsigned int size);
    // Bytes up to and including delim (or max of them), NUL-terminated: buf holds max + 1 bytes.
    virtual InStream& readUntil(char* buf, unsigned int max, unsigned char delim);
    virtual bool eof() = 0;
    // The same, without a call while bytes are ready.
    bool ended() { return !hasReady() && eof(); }
    bool hasReady() const { return ready_ != readyEnd_; }

    InStream& readChar(signed char& value);
    InStream& readShort(short& value);
    InStream& readShort(unsigned short& value);
    InStream& readInt24(int& value);  // sign-extended
    InStream& readInt(int& value);
    InStream& readLongLong(long long& value);
    InStream& readFloat(float& value);
    InStream& readFloat2(float& value);  // the two most significant bytes
    InStream& readFloat3(float& value);  // the three most significant bytes
    InStream& readDouble(double& value);
    InStream& readUShortCompact(unsigned short& value);  // 1 to 3 bytes
    InStream& readLongLongCompact(long long& value);     // 1 to 9 bytes
    InStream& readCharHex(signed char& value);
    InStream& readUCharHex(unsigned char& value);
    InStream& readShortHex(short& value);
    InStream& readUShortHex(unsigned short& value);

    // All n bytes in one read; false when fewer came.
    bool readExactly(void* buf, size_t n) { return n == 0 || fetch(static_cast<char*>(buf), n); }

    size_t bytesRead() const { return lastRead_; }
    size_t getBytesRead() const { return lastRead_; }
    size_t getTotalBytesRead() const { return totalBytesRead_; }
    void zeroBytesRead() { lastRead_ = 0; }
    void incBytesRead() { ++lastRead_; }
    void incBytesRead(size_t n) { lastRead_ += n; }
    void setBytesRead(size_t n) { lastRead_ = n; }
    void zeroTotalBytesRead() { totalBytesRead_ = 0; }

protected:
    size_t lastRead_ = 0;        // bytes moved by the most recent primitive
    size_t totalBytesRead_ = 0;  // advanced by read alone
    // The next bytes, where the stream has them at hand: a number of the log is too small to be worth a call. What is
    // taken from here counts as read. Touched only while the process has a single thread.
    const char* ready_ = nullptr;
    const char* readyEnd_ = nullptr;

private:
    static constexpr int LONGEST_COMPACT = 9;  // bytes

    bool has(size_t n) const { return __libc_single_threaded && static_cast<size_t>(readyEnd_ - ready_) >= n; }
    // One read; true when it delivered all n bytes.
    bool fetch(char* buf, size_t n) {
        if (!has(n)) return fetchByRead(buf, n);
        memcpy(buf, ready_, n);
        take(n, n);
        return true;
    }
    void take(size_t n, size_t counted) {
        ready_ += n;
        totalBytesRead_ += n;
        lastRead_ = counted;
    }
    bool fetchByRead(char* buf, size_t n);
    void fetchUShortCompact(unsigned short& value);
    void fetchLongLongCompact(long long& value);
    static int CompactLength(unsigned char first) {
        return first == 0xFF ? LONGEST_COMPACT : 1 + __builtin_ctz(~static_cast<unsigned int>(first));
    }
    static long long CompactValue(unsigned long long group, int length);
};

// The low 1-bits of the first byte of a compact code, up to the first 0-bit, count the bytes that follow it. Seven bits
// of every byte are the number; its top bit is the sign.
inline long long InStream::CompactValue(unsigned long long group, int length) {
    const int unusedBits = 64 - 8 * length;
    return static_cast<long long>(group << unusedBits) >> (unusedBits + length);
}

inline InStream& InStream::readUShortCompact(unsigned short& value) {
    unsigned short group;
    if (!has(sizeof group + 1)) {
        fetchUShortCompact(value);
        return *this;
    }
    memcpy(&group, ready_, sizeof group);
    if ((group & 1) == 0) {
        value = (group & 0xFF) >> 1;
        take(1, 1 + 1);
    } else if ((group & 2) == 0) {
        value = group >> 2;
        take(2, 1 + 2);
    } else {
        memcpy(&value, ready_ + 1, sizeof value);
        take(3, 2 + 3);
    }
    return *this;
}

inline InStream& InStream::readLongLongCompact(long long& value) {
    if (!has(LONGEST_COMPACT)) {
        fetchLongLongCompact(value);
        return *this;
    }
    const int length = CompactLength(static_cast<unsigned char>(*ready_));
    if (length == LONGEST_COMPACT) {
        memcpy(&value, ready_ + 1, sizeof value);
    } else {
        unsigned long long group;
        memcpy(&group, ready_, sizeof group);
        value = CompactValue(group, length);
    }
    const size_t bytes = static_cast<size_t>(length);
    const size_t lastPiece = bytes == 1 ? 1 : bytes - 1;
    take(bytes, lastPiece + bytes);
    return *this;
}
