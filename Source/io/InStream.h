#pragma once

#include <cstddef>

#include "io/ByteCursor.h"

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
    virtual bool eof() = 0;                     // a read has met the end of data, or there is no source
    virtual bool hasFailed() { return false; }  // a read came short of the end of data: the source cannot be read

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

    // The same for those who must know: false when the bytes did not come.
    bool takeUShortCompact(unsigned short& value);
    bool takeLongLongCompact(long long& value);
    bool takeUShort(unsigned short& value) { return readExactly(&value, sizeof value); }
    // All n bytes in one read; false when fewer came, buf being partly written.
    bool readExactly(void* buf, size_t n) { return n == 0 || fetch(static_cast<char*>(buf), n); }
    const char* take(size_t n, char* room) { return readExactly(room, n) ? room : nullptr; }  // n bytes, into the room

    // Lends the bytes that the stream has at hand, if any. What is kept of them counts as read when the loan ends;
    // until then nobody else can read.
    class Loan {
    public:
        explicit Loan(InStream& in) : in_(in), bytes_(in.lend()), keptEnd_(bytes_.at()) {}
        ~Loan() { in_.takeBack(keptEnd_); }
        Loan(const Loan&) = delete;
        Loan& operator=(const Loan&) = delete;

        ByteCursor bytes() const { return bytes_; }
        void keepUpTo(const ByteCursor& next) { keptEnd_ = next.at(); }

    private:
        InStream& in_;  // borrowed
        const ByteCursor bytes_;
        const char* keptEnd_;
    };

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
    size_t totalBytesRead_ = 0;  // what was read, and taken of loans

private:
    virtual ByteCursor lend() { return ByteCursor(); }
    virtual void takeBack(const char* /*keptEnd*/) {}  // the bytes before that were kept

    bool fetch(char* buf, size_t n);
    bool fetchCode(char* code, size_t (*lengthOf)(char first));
};
