#pragma once

#include "logger/writer/json/PackedItems.h"

class OutStream;
class Str;

// A JSON array that grows item by item, in constant time. Its items stay packed until the array is written, as the JSON
// library writes it.
// Errors: those of the store, where the items are kept.
class JsonArray : public PackedItems {
public:
    // formatted: a blank after each comma.
    JsonArray(SampleStore& store, bool formatted) : PackedItems(store), separator_(formatted ? ", " : ",") {}

    void addString(const Str& text);
    void write(OutStream& out);  // the whole array

private:
    const char* const separator_;
};
