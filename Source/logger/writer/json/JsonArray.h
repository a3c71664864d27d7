#pragma once

#include "utils/Str.h"
#include "utils/TextBuffer.h"

// The text of a JSON array that grows item by item, in constant time. Items are written as the JSON library writes
// them; the text takes a small part of the memory that a tree of items would.
class JsonArray {
public:
    // formatted: a blank after each comma.
    explicit JsonArray(bool formatted) : separator_(formatted ? ", " : ",") { text_.append('['); }

    void addNumber(double number);  // null when it is NaN or infinite
    void addString(const Str& text);
    void beginArray();  // a nested one; what is added from here on goes there
    void endArray() { text_.append(']'); }

    // Ends the array. NUL-terminated; lives as long as this object.
    const char* finish();

private:
    TextBuffer& beginItem();

    const char* const separator_;
    TextBuffer text_;
};
