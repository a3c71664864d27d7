#include "io/OutStream.h"

#include <climits>
#include <cstring>

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "the primitives copy the host's numbers into the log's bytes");

const char OutStream::HEX_CHARS[17] = "0123456789ABCDEF";

static const unsigned int INTEGER_BYTES = 33;  // a sign and 31 binary digits, and the NUL

// The bytes of value from firstByte on.
template <typename T>
static const char* BytesOf(const T& value, size_t firstByte = 0) {
    return reinterpret_cast<const char*>(&value) + firstByte;
}

// All bits of the mask are 0 in value, or all are 1: what lies above a number's sign bit, sign included.
template <typename T>
static bool AllAlike(T value, T mask) {
    return (value & mask) == 0 || (value & mask) == mask;
}

OutStream& OutStream::write(const char* s) {
    return write(s, strlen(s));
}

// ---- Numbers of a fixed width

OutStream& OutStream::writeChar(signed char value) {
    return put(BytesOf(value), 1);
}
OutStream& OutStream::writeShort(short value) {
    return put(BytesOf(value), 2);
}
OutStream& OutStream::writeInt24(int value) {
    return put(BytesOf(value), 3);
}
OutStream& OutStream::writeInt(int value) {
    return put(BytesOf(value), 4);
}
OutStream& OutStream::writeLongLong(long long value) {
    return put(BytesOf(value), 8);
}
OutStream& OutStream::writeFloat(float value) {
    return put(BytesOf(value), 4);
}
OutStream& OutStream::writeFloat2(float value) {
    return put(BytesOf(value, 2), 2);
}
OutStream& OutStream::writeFloat3(float value) {
    return put(BytesOf(value, 1), 3);
}
OutStream& OutStream::writeDouble(double value) {
    return put(BytesOf(value), 8);
}
OutStream& OutStream::writeDouble6(double value) {
    return put(BytesOf(value, 2), 6);
}

// ---- Compact codes: the low 1-bits of the first byte, up to the first 0-bit, count the bytes that follow it.

// So many of the number's low bytes, at most eight. All of them are put where there is room: what follows overwrites
// the others.
OutStream& OutStream::putLowBytes(unsigned long long bits, size_t n) {
    char* const at = roomFor(sizeof bits);
    if (at == nullptr) return write(BytesOf(bits), n);
    memcpy(at, &bits, sizeof bits);
    putUpTo(at + n);
    return *this;
}

// The forms are chosen as for a signed number although readers take it unsigned: existing logs are written so.
OutStream& OutStream::writeUShortCompact(const unsigned short& value) {
    const unsigned int bits = value;
    if (AllAlike(bits, 0xFF80u)) return putLowBytes(bits << 1, 1);
    if (AllAlike(bits, 0xC000u)) return putLowBytes(bits << 2 | 1, 2);
    return writeUShortWide(value);
}

OutStream& OutStream::writeUShortWide(unsigned short value) {
    return putLowBytes(static_cast<unsigned int>(value) << 8 | 0x03, 3);
}

// By length, from 1 on: the bits that must be alike. The forms of 4 and 8 bytes leave three bits below their sign
// untested; existing logs are written so, and a number with bit 27 or 55 alone reads back negative.
static const unsigned long long ALIKE_BITS[] = {
    0xFFFFFFFFFFFFFFC0, 0xFFFFFFFFFFFFE000, 0xFFFFFFFFFFF00000, 0xFFFFFFFFF1000000,
    0xFFFFFFFC00000000, 0xFFFFFE0000000000, 0xFFFF000000000000, 0xFF10000000000000,
};

OutStream& OutStream::writeLongLongCompact(const long long& value) {
    const unsigned long long bits = static_cast<unsigned long long>(value);
    size_t length = 1;
    for (const unsigned long long mask : ALIKE_BITS) {
        if (AllAlike(bits, mask)) return putLowBytes(bits << length | ((1ull << (length - 1)) - 1), length);
        ++length;
    }
    return writeLongLongWide(value);
}

OutStream& OutStream::writeLongLongWide(long long value) {
    char code[1 + sizeof value] = {static_cast<char>(0xFF)};
    memcpy(code + 1, &value, sizeof value);
    return put(code, sizeof code);
}

// ---- Hexadecimal digits, one character at a time

// The low digits of value; the most significant goes first.
OutStream& OutStream::writeHexDigits(unsigned int value, unsigned int digits) {
    for (unsigned int i = digits; i-- > 0;) write(&HEX_CHARS[value >> (4 * i) & 15], 1);
    lastWritten_ = digits;
    return *this;
}

OutStream& OutStream::writeCharHex(signed char value) {
    return writeUCharHex(static_cast<unsigned char>(value));
}
OutStream& OutStream::writeUCharHex(unsigned char value) {
    return writeHexDigits(value, 2);
}
OutStream& OutStream::writeShortHex(short value) {
    return writeUShortHex(static_cast<unsigned short>(value));
}
OutStream& OutStream::writeUShortHex(unsigned short value) {
    return writeHexDigits(value, 4);
}

OutStream& OutStream::writeHex(const char* buf, size_t n) {
    for (size_t i = 0; i < n; ++i) writeCharHex(static_cast<signed char>(buf[i]));
    return *this;
}

OutStream& OutStream::writeHex(const char* s) {
    return writeHex(s, strlen(s));
}

// ---- Numbers as text

OutStream& OutStream::writeInteger(int value, unsigned int base) {
    char digits[INTEGER_BYTES];
    const unsigned int count = Str::IntToAscii(value, digits, base, sizeof(digits), 0);
    return write(digits, count);
}

// What no int holds becomes the nearest one; NaN becomes 0.
static int ToInt(double value) {
    if (value != value) return 0;
    if (value >= INT_MAX) return INT_MAX;
    return value <= INT_MIN ? INT_MIN : static_cast<int>(value);
}

OutStream& OutStream::writeNumber(double value, unsigned int) {
    return writeInteger(ToInt(value + 0.5), 10);
}
