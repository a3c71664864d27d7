#pragma once

#include <cstddef>
#include <cstring>

#include "utils/NumberText.h"
#include "utils/Str.h"

// Builds one text piece by piece without touching the heap until the text outgrows the buffer's own room.
// The pieces are formatted independently of the process's locale. Threads: not synchronised.
class TextBuffer {
public:
    TextBuffer() = default;
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;
    ~TextBuffer();

    // Each adds a piece and gives the buffer, so that calls chain. A piece must not lie in the buffer itself.
    TextBuffer& append(const char* text, size_t length) {  // any bytes, NUL too
        memcpy(roomFor(length), text, length);
        length_ += length;
        return *this;
    }
    TextBuffer& append(const char* text) { return append(text, strlen(text)); }  // up to the NUL; never null
    TextBuffer& append(const Str& text) { return append(text.data(), text.length()); }
    TextBuffer& append(char c) {
        *roomFor(1) = c;
        ++length_;
        return *this;
    }
    TextBuffer& appendInt(long long value);                             // decimal
    TextBuffer& appendHex(unsigned long long value);                    // upper-case, without leading zeros
    TextBuffer& appendHexDigits(unsigned long long value, int digits);  // upper-case, the lowest so many digits
    // The value as "%.*f"; NaN of either sign is "nan". Longer than 30 characters: cut there, as every number text is.
    TextBuffer& appendFixed(double value, unsigned int decimals);
    TextBuffer& appendWhole(double value, unsigned int decimals);  // "%.*f" of a number, however long

    void clear() { length_ = 0; }                // keeps its room
    const char* data() const { return chars_; }  // not NUL-terminated; valid until the next piece
    size_t length() const { return length_; }    // bytes
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
