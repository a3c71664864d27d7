#include "utils/TextBuffer.h"

#include <algorithm>
#include <cfloat>
#include <charconv>

static const size_t LONGEST_INTEGER = 20;  // characters of the least long long
static const char HEX_DIGITS[] = "0123456789ABCDEF";

TextBuffer& TextBuffer::appendInt(long long value) {
    char* const at = roomFor(LONGEST_INTEGER);
    length_ += static_cast<size_t>(std::to_chars(at, at + LONGEST_INTEGER, value).ptr - at);
    return *this;
}

TextBuffer& TextBuffer::appendHex(unsigned long long value) {
    int digits = 1;
    for (unsigned long long rest = value >> 4; rest != 0; rest >>= 4) ++digits;
    return appendHexDigits(value, digits);
}

TextBuffer& TextBuffer::appendHexDigits(unsigned long long value, int digits) {
    const size_t count = static_cast<size_t>(std::max(digits, 0));
    char* const at = roomFor(count);
    for (size_t i = count; i-- > 0; value >>= 4) at[i] = HEX_DIGITS[value & 15];
    length_ += count;
    return *this;
}

TextBuffer& TextBuffer::appendFixed(double value, unsigned int decimals) {
    length_ += NumberText::Fixed(value, decimals, roomFor(NumberText::MAX_LENGTH + 1));
    return *this;
}

TextBuffer& TextBuffer::appendWhole(double value, unsigned int decimals) {
    const size_t longest = DBL_MAX_10_EXP + decimals + 3;  // with a sign, the first digit and the point
    char* const at = roomFor(longest);
    length_ += static_cast<size_t>(
        std::to_chars(at, at + longest, value, std::chars_format::fixed, static_cast<int>(decimals)).ptr - at);
    return *this;
}

void TextBuffer::grow(size_t more) {
    const size_t room = std::max(2 * room_, length_ + more);
    std::unique_ptr<char[]> larger(new char[room]);
    memcpy(larger.get(), chars_, length_);
    outgrown_ = std::move(larger);
    chars_ = outgrown_.get();
    room_ = room;
}
