#include "logger/writer/matlab/MatlabForm.h"

#include <cstring>
#include <ctime>
#include <memory>

#include "utils/Utf8.h"

void MatlabForm::MarkStruct(Hdf5Group& group) {
    MarkClass(group, "struct");
}

void MatlabForm::MarkClass(Hdf5Item& item, const char* className) {
    item.addAtt("MATLAB_class", className);
}

// The character at the position of well-formed UTF-8; the position moves behind it.
static uint32_t TakeCharacter(const Str& text, size_t& at) {
    static const unsigned char FIRST_BITS[] = {0x7F, 0x1F, 0x0F, 0x07};  // by the number of bytes that follow
    const unsigned char first = static_cast<unsigned char>(text[at++]);
    const int following = first < 0xC0 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    uint32_t character = first & FIRST_BITS[following];
    for (int i = 0; i < following; ++i) character = character << 6 | (text[at++] & 0x3F);
    return character;
}

// The Unicode Standard, section 3.9: UTF-16. No text has more units than it has bytes in UTF-8.
static size_t ToUtf16(const Str& text, uint16_t* units) {
    size_t count = 0;
    for (size_t at = 0; at < text.length();) {
        const uint32_t character = TakeCharacter(text, at);
        if (character < 0x10000) {
            units[count++] = static_cast<uint16_t>(character);
        } else {
            units[count++] = static_cast<uint16_t>(0xD7C0 + (character >> 10));
            units[count++] = static_cast<uint16_t>(0xDC00 | (character & 0x3FF));
        }
    }
    return count;
}

Hdf5Item MatlabForm::AddText(Hdf5Group& group, const Str& name, const Str& text) {
    const Str valid = Utf8::Sanitized(text);
    if (valid.isEmpty()) return AddEmpty(group, name, CHAR_CLASS);
    const std::unique_ptr<uint16_t[]> units(new uint16_t[valid.length()]);
    const size_t count = ToUtf16(valid, units.get());
    Hdf5Item item = group.addArray(name, Hdf5Shape{2, {count, 1}}, units.get());
    MarkClass(item, CHAR_CLASS);
    item.addAtt("MATLAB_int_decode", 2);
    return item;
}

Hdf5Item MatlabForm::AddNumbers(Hdf5Group& group, const Str& name, const double* numbers, size_t count) {
    if (count == 0) return AddEmpty(group, name, DOUBLE_CLASS);
    Hdf5Item item = group.addArray(name, Hdf5Shape{2, {1, count}}, numbers);
    MarkClass(item, DOUBLE_CLASS);
    return item;
}

Hdf5Item MatlabForm::AddEmpty(Hdf5Group& group, const Str& name, const char* className) {
    static const uint64_t DIMENSIONS[] = {0, 0};
    Hdf5Item item = group.addArray(name, Hdf5Shape{1, {2}}, DIMENSIONS);
    if (className != NO_CLASS) MarkClass(item, className);
    item.addAtt("MATLAB_empty", static_cast<unsigned char>(1));
    return item;
}

// As "Fri Jun  1 12:30:00 2012"; a year that has no such form falls back to the epoch.
static Str DateText(const Timestamp& t) {
    const struct tm broken = t.asStructTm();
    char text[64];
    if (asctime_r(&broken, text) == nullptr) return DateText(Timestamp::EPOCH_START_TIME);
    return Str(text, strlen(text) - 1);
}

Str MatlabForm::Header(const Timestamp& created) {
    static const size_t TEXT_LENGTH = 116;
    static const char VERSION[] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 'I', 'M'};
    Str header = "MATLAB 7.3 MAT-file, Platform: GLNXA64, Created on: " + DateText(created) + " HDF5 schema 1.00 .";
    while (header.length() < TEXT_LENGTH) header += ' ';
    header.append(VERSION, sizeof VERSION);
    return header + Str(static_cast<const char*>(nullptr), HEADER_SIZE - header.length());
}
