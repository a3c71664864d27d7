#include "logger/writer/netcdf/NetCdfNames.h"

#include <cctype>

#include "utils/Utf8.h"

static const char SUBSTITUTE = '_';

static bool IsMultibyte(char c) {
    return static_cast<unsigned char>(c) >= 0x80;
}

static bool CanBegin(char c) {
    return isalnum(static_cast<unsigned char>(c)) || c == '_' || IsMultibyte(c);
}

// Not in the middle of a character.
static size_t CutLength(const Str& text) {
    if (text.length() <= NetCdfNames::MAX_LENGTH) return text.length();
    size_t length = NetCdfNames::MAX_LENGTH;
    while (length > 0 && (text[length] & 0xC0) == 0x80) --length;
    return length;
}

// Bytes of text that is not UTF-8 mean nothing to any reader: each byte above ASCII goes.
Str NetCdfNames::Valid(const Str& text) {
    const bool isUtf8 = Utf8::IsValid(text);
    Str name(text, 0, isUtf8 ? CutLength(text) : MAX_LENGTH);
    for (size_t i = 0; i < name.length(); ++i) {
        const bool isForbidden = iscntrl(static_cast<unsigned char>(name[i])) || name[i] == '/';
        if (isForbidden || (!isUtf8 && IsMultibyte(name[i]))) name.setChar(i, SUBSTITUTE);
    }
    if (name.isEmpty()) return "_";
    if (!CanBegin(name[0])) name.setChar(0, SUBSTITUTE);
    if (name[name.length() - 1] == ' ') name.setChar(name.length() - 1, SUBSTITUTE);
    return name;
}

Str NetCdfNames::OfElement(const Str& name) {
    Str parts(name);
    parts.replaceChar(':', '.');
    parts.replaceChar('/', '.');
    return Valid(parts);
}
