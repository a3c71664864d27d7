#include "utils/Utf8.h"

#include <cstring>

#include "utils/TextBuffer.h"

namespace {

const char REPLACEMENT[] = "\xEF\xBF\xBD";  // U+FFFD

// The Unicode Standard's table 3-7, well-formed UTF-8 byte sequences: first byte, length, range of the second byte.
// Every later byte lies in 80 .. BF.
struct SequenceForm {
    unsigned char firstMin_, firstMax_;
    size_t length_;
    unsigned char secondMin_, secondMax_;
};
const SequenceForm FORMS[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF}, {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF}, {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

bool Between(char c, unsigned char min, unsigned char max) {
    const unsigned char byte = static_cast<unsigned char>(c);
    return min <= byte && byte <= max;
}

// Bytes of the well-formed sequence that begins at the position, 0 when none does. A sequence that the end of the text
// cuts meets NUL, which continues nothing.
size_t SequenceLength(const Str& text, size_t at) {
    if (Between(text[at], 0x00, 0x7F)) return 1;
    for (const SequenceForm& form : FORMS) {
        if (!Between(text[at], form.firstMin_, form.firstMax_)) continue;
        if (!Between(text[at + 1], form.secondMin_, form.secondMax_)) return 0;
        for (size_t i = 2; i < form.length_; ++i) {
            if (!Between(text[at + i], 0x80, 0xBF)) return 0;
        }
        return form.length_;
    }
    return 0;
}

}  // namespace

bool Utf8::IsValid(const Str& text) {
    for (size_t at = 0; at < text.length();) {
        const size_t length = SequenceLength(text, at);
        if (length == 0) return false;
        at += length;
    }
    return true;
}

Str Utf8::Sanitized(const Str& text, Nul nul) {
    const bool hasNul = nul == REPLACE_NUL && strlen(text.cStr()) < text.length();
    if (!hasNul && IsValid(text)) return text;
    TextBuffer result;
    for (size_t at = 0; at < text.length();) {
        const size_t length = hasNul && text[at] == '\0' ? 0 : SequenceLength(text, at);
        if (length == 0) {
            result.append(REPLACEMENT);
            ++at;
        } else {
            result.append(text.data() + at, length);
            at += length;
        }
    }
    return result.toStr();
}
