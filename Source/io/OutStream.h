#pragma once

#include <cstddef>

#include "utils/Str.h"

// A sink of bytes in the log's little-endian forms. Every primitive returns the stream, so that calls chain, and
// bytesWritten() tells how many bytes it moved (after writeHex: those of the last character).
// Errors: nothing is printed; a short write shows in bytesWritten().
class OutStream {
public:
    static const char HEX_CHARS[17];

    virtual ~OutStream() {}
    virtual OutStream& write(const char* buf, size_t n) = 0;  // buf is not kept
    virtual OutStream& writeHex(const char* buf, size_t n);
    virtual bool isWritable() = 0;
    virtual const char* getName() { return "unknown"; }  // of the file
    virtual OutStream& write(const char* s);
    virtual OutStream& writeHex(const char* s);

    OutStream& writeChar(signed char value);
    OutStream& writeShort(short value);
    OutStream& writeInt24(int value);  // the three low bytes
    OutStream& writeInt(int value);
    OutStream& writeLongLong(long long value);
    OutStream& writeFloat(float value);
    OutStream& writeFloat2(float value);  // the two most significant bytes, not rounded
    OutStream& writeFloat3(float value);  // the three most significant bytes, not rounded
    OutStream& writeDouble(double value);
    OutStream& writeDouble6(double value);  // the six most significant bytes, not rounded
    OutStream& writeUShortCompact(const unsigned short& value);
    // The three-byte form, which every reader accepts, for values that the compact writer would not bring back.
    OutStream& writeUShortWide(unsigned short value);
    OutStream& writeLongLongCompact(const long long& value);
    OutStream& writeCharHex(signed char value);
    OutStream& writeUCharHex(unsigned char value);
    OutStream& writeShortHex(short value);
    OutStream& writeUShortHex(unsigned short value);
    OutStream& writeInteger(int value, unsigned int base);
    OutStream& writeNumber(double value, unsigned int base);  // the value plus 0.5, truncated, always in base 10

    OutStream& operator<<(const Str& s) { return write(s.data(), s.length()); }
    OutStream& operator<<(const char* s) { return write(s); }
    OutStream& operator<<(char c) { return write(&c, 1); }
    OutStream& operator<<(signed char c) { return *this << static_cast<char>(c); }
    OutStream& operator<<(unsigned char c) { return *this << static_cast<char>(c); }
    OutStream& operator<<(int value) { return writeInteger(value, 10); }

    size_t bytesWritten() const { return lastWritten_; }

protected:
    size_t lastWritten_ = 0;  // bytes written by the most recent primitive

private:
    OutStream& writeHexDigits(unsigned int value, unsigned int digits);
};
