#pragma once

#include <cstddef>

class InStream;
class OutStream;
class Str;

// The pieces of the directory's text records.
namespace RecordText {
// Reads exactly the fixed text; false when anything else stands there.
bool ReadFixed(InStream& in, const char* text);
// Reads upper- or lower-case hexadecimal digits throughout; false otherwise.
bool ReadHex2(InStream& in, unsigned char& value);
bool ReadHex4(InStream& in, unsigned short& value);
// Reads up to the closing quote, which is consumed; false when it does not come within room bytes, quote included.
bool ReadQuoted(InStream& in, unsigned int room, Str& text);
size_t Write(OutStream& out, const Str& record);  // bytes written
}  // namespace RecordText
