#pragma once

#include <cstddef>
#include <cstring>
#include <memory>

#include "utils/NumberText.h"
#include "utils/Str.h"

// Builds one text piece by piece, in room of its own or in room that the caller lends, without touching the heap until
// the text outgrows that.
// The pieces are formatted independently of the process's locale. Threads: not synchronised.
class TextBuffer {
public:
    TextBuffer() : chars_(own_), room_(OWN_ROOM) {}
    // In a place with so much room, which outlives the text; null stands for the buffer's own.
    TextBuffer(char* place, size_t room)
        : chars_(place == nullptr ? own_ : place), room_(place == nullptr ? +OWN_ROOM : room) {}
    TextBuffer(const TextBuffer&) = delete;
    TextBuffer& operator=(const TextBuffer&) = delete;

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

    // Where so many bytes of the next piece can be written; what is written there is then added up to its end.
    char* roomFor(size_t more) {
        if (more > room_ - length_) grow(more);
        return chars_ + length_;
    }
    void addUpTo(const char* end) { length_ = static_cast<size_t>(end - chars_); }

    void clear() { length_ = 0; }                // keeps its room
    const char* data() const { return chars_; }  // not NUL-terminated; valid until the next piece
    size_t length() const { return length_; }    // bytes
    Str toStr() const { return Str(chars_, length_); }

private:
    void grow(size_t more);

    static constexpr size_t OWN_ROOM = 512;
    char own_[OWN_ROOM];
    std::unique_ptr<char[]> outgrown_;  // what the text moved to
    char* chars_;                       // own_, what was lent, or outgrown_
    size_t length_ = 0;
    size_t room_;
};
