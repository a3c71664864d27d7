#include "logger/writer/matlab/MatlabNames.h"

#include "utils/Utf8.h"

// Of ASCII, whatever the process's locale.
static bool IsLetter(char c) {
    return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z');
}

static bool IsDigit(char c) {
    return '0' <= c && c <= '9';
}

static bool ContinuesCharacter(char c) {
    return (c & 0xC0) == 0x80;
}

Str MatlabNames::Identifier(const Str& text) {
    const Str valid = Utf8::Sanitized(text);
    Str identifier;
    if (!IsLetter(valid[0])) identifier += 'x';
    for (size_t i = 0; i < valid.length() && identifier.length() < MAX_LENGTH; ++i) {
        const char c = valid[i];
        if (!ContinuesCharacter(c)) identifier += IsLetter(c) || IsDigit(c) ? c : '_';
    }
    return identifier;
}

Str MatlabNames::Numbered(const Str& identifier, unsigned int number) {
    const Str ending = "_" + Str(size_t(number), 10);
    return identifier.substr(0, MAX_LENGTH - ending.length()) + ending;
}
