#pragma once

#include <cstddef>
#include <cstring>

#include "utils/NumberText.h"
#include "utils/Str.h"

// Builds one text piece by piece without touching the heap until the text outgrows the buffer's own room.
// The pieces are formatted independently of the process's locale.
class TextBuffer {
public:
    TextBuffer() = default;
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;
    ~TextBuffer();

    TextBuffer& append(const char* text, size_t length) {
        memcpy(roomFor(length), text, length);
        length_ += length;
        return *this;
    }
    TextBuffer& append(const char* text) { return append(text, strlen(text)); }
    TextBuffer& append(const Str& text) { return append(text.data(), text.length()); }
    TextBuffer& append(char c) {
        *roomFor(1) = c;
        ++length_;
        return *this;
    }
    TextBuffer& appendInt(long long value);                             // decimal
    TextBuffer& appendHex(unsigned long long value);                    // upper-case, without leading zeros
    TextBuffer& appendHexDigits(unsigned long long value, int digits);  // upper-case, exactly so many digits
    // The value as "%.*f"; NaN of either sign is "nan". Longer than 30 characters: cut there, as every number text is.
    TextBuffer& appendFixed(double value, unsigned int decimals);
    TextBuffer& appendWhole(double value, unsigned int decimals);  // "%.*f" of a number, however long

    void clear() { length_ = 0; }
    const char* data() const { return chars_; }  // not NUL-terminated
    size_t length() const { return length_; }
    Str toStr() const { return Str(chars_, length_); }

private:
    void grow(size_t more);
    char* roomFor(size_t more) {  // where the next piece goes, with so many bytes free behind it
        if (more > room_ - length_) grow(more);
        return chars_ + length_;
    }

    static constexpr size_t OWN_ROOM = 512;
    char own_[OWN_ROOM];
    char* chars_ = own_;  // own_, or a heap block owned by the buffer
    size_t length_ = 0;
    size_t room_ = OWN_ROOM;
};
