#pragma once

#include "utils/RefusableBytes.h"
#include "utils/Str.h"

class OutStream;
class TextBuffer;

// The text of a JSON array that grows item by item, in constant time. Items are written as the JSON library writes
// them; the text takes a small part of the memory that a tree of items would. What comes again is kept once: a few
// bytes of a log can repeat an array of any length.
// Errors: without memory nothing more is added; isRefused tells.
class JsonArray {
public:
    // formatted: a blank after each comma.
    explicit JsonArray(bool formatted) : separator_(formatted ? ", " : ",") {}

    void addNumber(double number);    // null when it is NaN or infinite
    void addString(const Str& text);  // as one that is quoted and escaped; what is not UTF-8 becomes U+FFFD
    void beginArray();                // a nested one; what is added from here on goes there
    void endArray();                  // goes back to the one around it
    // The items from a place on, which end what is there, or those of a length at a place, so many times more.
    void addAgain(size_t place, size_t times) { addAgain(place, length() - place, times); }
    void addAgain(size_t place, size_t length, size_t times);

    size_t nextPlace() const;  // of the item that is added next
    // Bytes of the text so far, with what is only repeated counted once; a mark to cut back to.
    size_t length() const { return text_.length(); }
    void cutTo(size_t length) { text_.cutTo(length); }  // takes back what came behind
    // Memory was refused, and stays so: what was added last may be there in part.
    bool isRefused() const { return text_.isRefused(); }

    void write(OutStream& out);  // the whole array

private:
    // Stands in the text, behind a NUL, which is no character of JSON.
    struct Repetition {
        size_t place_;
        size_t length_;
        size_t times_;
    };

    void beginItem();
    void addItem(const char* text, size_t length);
    void write(OutStream& out, TextBuffer& gathered, size_t from, size_t end);

    const char* const separator_;
    RefusableBytes text_;       // of the items
    bool isAtStart_ = true;     // of the array or of a nested one
    size_t repetitionEnd_ = 0;  // where the text of the last repetition ends; 0: there is none
};
