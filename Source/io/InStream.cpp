#include "io/InStream.h"

#include <cstdlib>

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "the primitives copy the log's bytes into the host's numbers");

static const char CARRIAGE_RETURN = '\r';
static const char LINE_FEED = '\n';

// The bytes of value from firstByte on.
template <typename T>
static char* BytesOf(T& value, size_t firstByte = 0) {
    return reinterpret_cast<char*>(&value) + firstByte;
}

// One read; true when it delivered all n bytes. Counted by the running total: a stream without a file leaves lastRead_
// as it was.
bool InStream::fetch(char* buf, size_t n) {
    const size_t before = totalBytesRead_;
    read(buf, n);
    return totalBytesRead_ - before == n;
}

// ---- Numbers of a fixed width

InStream& InStream::readChar(signed char& value) {
    return read(BytesOf(value), 1);
}
InStream& InStream::readShort(short& value) {
    return read(BytesOf(value), 2);
}
InStream& InStream::readShort(unsigned short& value) {
    return read(BytesOf(value), 2);
}
InStream& InStream::readInt(int& value) {
    return read(BytesOf(value), 4);
}
InStream& InStream::readLongLong(long long& value) {
    return read(BytesOf(value), 8);
}
InStream& InStream::readFloat(float& value) {
    return read(BytesOf(value), 4);
}
InStream& InStream::readDouble(double& value) {
    return read(BytesOf(value), 8);
}

InStream& InStream::readInt24(int& value) {
    unsigned int upperBytes = 0;
    read(BytesOf(upperBytes, 1), 3);
    value = static_cast<int>(upperBytes) >> 8;  // brings the sign down from bit 23
    return *this;
}

InStream& InStream::readFloat2(float& value) {
    value = 0.0f;
    return read(BytesOf(value, 2), 2);
}

InStream& InStream::readFloat3(float& value) {
    value = 0.0f;
    return read(BytesOf(value, 1), 3);
}

// ---- Compact codes

// The first byte, then as many as it says.
bool InStream::fetchCode(char* code, size_t (*lengthOf)(char first)) {
    if (!fetch(code, 1)) return false;
    const size_t length = lengthOf(*code);
    if (length > 1 && !fetch(code + 1, length - 1)) return false;
    incBytesRead(length);
    return true;
}

bool InStream::takeUShortCompact(unsigned short& value) {
    char code[CompactCode::LONGEST_USHORT] = {};
    if (!fetchCode(code, CompactCode::UShortLength)) return false;
    value = CompactCode::UShortValue(code);
    return true;
}

bool InStream::takeLongLongCompact(long long& value) {
    char code[CompactCode::LONGEST_LONG_LONG] = {};
    if (!fetchCode(code, CompactCode::LongLongLength)) return false;
    value = CompactCode::LongLongValue(code, CompactCode::LongLongLength(*code));
    return true;
}

InStream& InStream::readUShortCompact(unsigned short& value) {
    takeUShortCompact(value);
    return *this;
}
InStream& InStream::readLongLongCompact(long long& value) {
    takeLongLongCompact(value);
    return *this;
}

// ---- Hexadecimal digits; strtol ends the number at the first character that is none.

template <size_t DIGITS, typename T>
static InStream& ReadHex(InStream& in, T& value) {
    char digits[DIGITS + 1] = {};
    in.read(digits, DIGITS);
    value = static_cast<T>(strtol(digits, nullptr, 16));
    return in;
}

InStream& InStream::readCharHex(signed char& value) {
    return ReadHex<2>(*this, value);
}
InStream& InStream::readUCharHex(unsigned char& value) {
    return ReadHex<2>(*this, value);
}
InStream& InStream::readShortHex(short& value) {
    return ReadHex<4>(*this, value);
}
InStream& InStream::readUShortHex(unsigned short& value) {
    return ReadHex<4>(*this, value);
}

// ---- Text

InStream& InStream::readLine(char* buf, unsigned int size) {
    if (size == 0) return *this;
    unsigned int counted = 0;
    char* at = buf;
    while (counted + 1 < size && !eof() && fetch(at, 1)) {
        const bool isSecondHalf = *at == LINE_FEED && counted == 0;  // of a CR LF that ended the line before
        if (!isSecondHalf) {
            if (*at == LINE_FEED || *at == CARRIAGE_RETURN) break;
            ++at;
        }
        ++counted;
    }
    *at = '\0';
    lastRead_ = counted;
    return *this;
}

// The place of a byte that never came counts as read, so that a caller sees the end as it sees the delimiter.
InStream& InStream::readUntil(char* buf, unsigned int max, unsigned char delim) {
    unsigned int counted = 0;
    bool ended = false;
    while (!ended && counted < max) {
        char& next = buf[counted++];
        next = '\0';
        // NOLINTNEXTLINE(bugprone-signed-char-misuse): a delimiter above 127 never matches
        ended = !fetch(&next, 1) || static_cast<signed char>(next) == delim;
    }
    buf[counted] = '\0';
    lastRead_ = counted;
    return *this;
}
