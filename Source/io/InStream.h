#pragma once

#include <cstddef>

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

private:
    bool fetch(char* buf, size_t n);  // one read; true when it delivered all n bytes
};
