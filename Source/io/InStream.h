#pragma once

#include <sys/single_threaded.h>

#include <cstddef>
#include <cstring>

// A source of bytes in the log's little-endian forms. Every primitive returns the stream, so that calls chain.
// Errors: nothing is printed. At the end of data a primitive stops, leaves its destination untouched or partly written,
// and eof() is true; bytesRead() tells what the last primitive moved.
// Counting: only getTotalBytesRead() is exact after a compact read; bytesRead() then holds the last underlying read
// plus the encoded length.
class InStream {
public:
    virtual ~InStream() {}
    virtual InStream& read(char* buf, size_t n) = 0;  // at most n bytes into the caller's buf
    virtual const char* getName() = 0;                // for messages; the stream's, and valid while it keeps its source
    virtual bool isReadable() = 0;                    // it has a source, be that at its end
    // A text line without its CR or LF, NUL-terminated, of at most size - 1 bytes, the rest being the next line; a line
    // feed that comes first is the second half of a CR LF and is skipped; so is an empty line that ends in LF.
    virtual InStream& readLine(char* buf, unsigned int size);
    // Bytes up to and including delim (or max of them), NUL-terminated: buf holds max + 1 bytes. At the end of data a
    // NUL stands for the byte that did not come and is counted. A delim of 0x80 or above matches nothing.
    virtual InStream& readUntil(char* buf, unsigned int max, unsigned char delim);
    virtual bool eof() = 0;  // a read has met the end of data, or there is no source
    // The same, without a call while bytes are ready.
    bool ended() { return !hasReady() && eof(); }
    bool hasReady() const { return ready_ != readyEnd_; }  // the next byte comes without a read

    InStream& readChar(signed char& value);              // 1 byte
    InStream& readShort(short& value);                   // 2 bytes
    InStream& readShort(unsigned short& value);          // 2 bytes
    InStream& readInt24(int& value);                     // 3 bytes, sign-extended
    InStream& readInt(int& value);                       // 4 bytes
    InStream& readLongLong(long long& value);            // 8 bytes
    InStream& readFloat(float& value);                   // 4 bytes of IEEE 754
    InStream& readFloat2(float& value);                  // the two most significant bytes, the others 0
    InStream& readFloat3(float& value);                  // the three most significant bytes, the other 0
    InStream& readDouble(double& value);                 // 8 bytes of IEEE 754
    InStream& readUShortCompact(unsigned short& value);  // 1 to 3 bytes: unsigned, whatever the writer meant
    InStream& readLongLongCompact(long long& value);     // 1 to 9 bytes, sign-extended
    // So many hexadecimal digits of either case, the most significant first. The number ends before a character that is
    // none; without any it is 0.
    InStream& readCharHex(signed char& value);       // 2 digits
    InStream& readUCharHex(unsigned char& value);    // 2 digits
    InStream& readShortHex(short& value);            // 4 digits
    InStream& readUShortHex(unsigned short& value);  // 4 digits

    // All n bytes in one read; false when fewer came, buf being partly written.
    bool readExactly(void* buf, size_t n) { return n == 0 || fetch(static_cast<char*>(buf), n); }

    size_t bytesRead() const { return lastRead_; }                // by the last primitive; see Counting above
    size_t getBytesRead() const { return lastRead_; }             // the same
    size_t getTotalBytesRead() const { return totalBytesRead_; }  // since the total was last zeroed; seeks do not count
    // For readers that count what they make of several primitives.
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
