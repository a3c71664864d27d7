#include "data/RecordText.h"

#include <charconv>
#include <cstring>

#include "io/InStream.h"
#include "io/OutStream.h"
#include "utils/Str.h"

namespace {

const unsigned int MAX_ROOM = 256;  // bytes that the longest quoted text takes, its closing quote included

// Exactly `digits` hexadecimal digits.
template <typename T>
bool ReadHex(InStream& in, size_t digits, T& value) {
    char text[4];
    if (in.read(text, digits).bytesRead() != digits) return false;
    unsigned int number = 0;
    const std::from_chars_result result = std::from_chars(text, text + digits, number, 16);
    if (result.ptr != text + digits) return false;
    value = static_cast<T>(number);
    return true;
}

}  // namespace

bool RecordText::ReadFixed(InStream& in, const char* text) {
    char found[16];
    const size_t length = strlen(text);
    return length <= sizeof(found) && in.read(found, length).bytesRead() == length && memcmp(found, text, length) == 0;
}

bool RecordText::ReadHex2(InStream& in, unsigned char& value) {
    return ReadHex(in, 2, value);
}

bool RecordText::ReadHex4(InStream& in, unsigned short& value) {
    return ReadHex(in, 4, value);
}

bool RecordText::ReadQuoted(InStream& in, unsigned int room, Str& text) {
    char found[MAX_ROOM + 1];
    if (room > MAX_ROOM) return false;
    const size_t length = in.readUntil(found, room, '"').bytesRead();
    if (length == 0 || length > room || found[length - 1] != '"') return false;
    text.set(found, length - 1);
    return true;
}

size_t RecordText::Write(OutStream& out, const Str& record) {
    return out.write(record.data(), record.length()).bytesWritten();
}
