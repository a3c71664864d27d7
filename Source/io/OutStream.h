#pragma once

#include <sys/single_threaded.h>

#include <cstddef>
#include <cstring>

#include "utils/Str.h"

// A sink of bytes in the log's little-endian forms. Every primitive returns the stream, so that calls chain, and
// bytesWritten() tells how many bytes it moved (after writeHex: those of the last character).
// Errors: nothing is printed; a short write shows in bytesWritten(), which a stream without a target leaves as it was.
// Threads: a primitive of several writes is not atomic.
class OutStream {
public:
    static const char HEX_CHARS[17];

    virtual ~OutStream() {}
    virtual OutStream& write(const char* buf, size_t n) = 0;  // buf is not kept
    virtual OutStream& writeHex(const char* buf, size_t n);   // two upper-case digits a byte
    virtual bool isWritable() = 0;                            // it has a target; says nothing of room left there
    virtual const char* getName() { return "unknown"; }       // of the file
    virtual OutStream& write(const char* s);                  // up to its NUL, which is not written
    virtual OutStream& writeHex(const char* s);               // likewise, two digits a byte

    // Where the next bytes can be put instead of written: the stream's own place with room() bytes, at least so many;
    // null when it lends none, as while there are other threads. putUpTo the end of what was put there writes it.
    char* roomFor(size_t n) {
        if (!__libc_single_threaded) return nullptr;
        return n <= room() ? room_ : makeRoom(n);
    }
    size_t room() const { return static_cast<size_t>(roomEnd_ - room_); }
    void putUpTo(const char* end) {
        lastWritten_ = static_cast<size_t>(end - room_);
        room_ += lastWritten_;
    }
    // As write, but in line where the room has place for them: for the few bytes of a number.
    OutStream& put(const char* buf, size_t n) {
        char* const at = roomFor(n);
        if (at == nullptr) return write(buf, n);
        memcpy(at, buf, n);
        putUpTo(at + n);
        return *this;
    }

    OutStream& writeChar(signed char value);                     // 1 byte
    OutStream& writeShort(short value);                          // 2 bytes
    OutStream& writeInt24(int value);                            // the three low bytes
    OutStream& writeInt(int value);                              // 4 bytes
    OutStream& writeLongLong(long long value);                   // 8 bytes
    OutStream& writeFloat(float value);                          // 4 bytes of IEEE 754
    OutStream& writeFloat2(float value);                         // the two most significant bytes, not rounded
    OutStream& writeFloat3(float value);                         // the three most significant bytes, not rounded
    OutStream& writeDouble(double value);                        // 8 bytes of IEEE 754
    OutStream& writeDouble6(double value);                       // the six most significant bytes, not rounded
    OutStream& writeUShortCompact(const unsigned short& value);  // 1 to 3 bytes; 0xC000 and above come back changed
    // The three-byte form, which every reader accepts, for values that the compact writer would not bring back.
    OutStream& writeUShortWide(unsigned short value);
    // 1 to 9 bytes. Some numbers whose bit 27 or 55 is not as the bits above it come back with the other sign.
    OutStream& writeLongLongCompact(const long long& value);
    OutStream& writeLongLongWide(long long value);          // its form of nine bytes, which brings every number back
    OutStream& writeCharHex(signed char value);             // 2 digits, upper-case
    OutStream& writeUCharHex(unsigned char value);          // 2 digits
    OutStream& writeShortHex(short value);                  // 4 digits, the most significant first
    OutStream& writeUShortHex(unsigned short value);        // 4 digits
    OutStream& writeInteger(int value, unsigned int base);  // its text in the base, as by Str::IntToAscii
    // The value plus 0.5, truncated, always in base 10; NaN is 0, and what no int holds the nearest one.
    OutStream& writeNumber(double value, unsigned int base);

    // Texts and characters as they are, an int in base 10.
    OutStream& operator<<(const Str& s) { return write(s.data(), s.length()); }
    OutStream& operator<<(const char* s) { return write(s); }
    OutStream& operator<<(char c) { return write(&c, 1); }
    OutStream& operator<<(signed char c) { return *this << static_cast<char>(c); }
    OutStream& operator<<(unsigned char c) { return *this << static_cast<char>(c); }
    OutStream& operator<<(int value) { return writeInteger(value, 10); }

    size_t bytesWritten() const { return lastWritten_; }  // by the last primitive

protected:
    virtual char* makeRoom(size_t) { return nullptr; }  // room for so many bytes, where it is short; null: none

    size_t lastWritten_ = 0;   // bytes written by the most recent primitive
    char* room_ = nullptr;     // where the next byte goes; null in a stream that lends no room
    char* roomEnd_ = nullptr;  // behind the last one that has place

private:
    OutStream& putLowBytes(unsigned long long bits, size_t n);
    OutStream& writeHexDigits(unsigned int value, unsigned int digits);
};
