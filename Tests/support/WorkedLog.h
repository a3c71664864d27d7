#pragma once

#include "Hex.h"
#include "utils/Str.h"

// A small whole log that holds every kind of entry, entry by entry, each with the line that the text output makes of
// it.
struct WorkedEntry {
    const char* record_;  // a directory entry's text, after its header
    const char* bytes_;   // any other entry, in hexadecimal
    const char* line_;

    Str toBytes() const { return record_ == nullptr ? FromHex(bytes_) : FromHex("2A") + Str(record_); }
};

inline const WorkedEntry WORKED_LOG[] = {
    {"v 0008\n", nullptr, "VERSION 8"},
    {"n code=0000 name=\"Depth\"\n", nullptr, "NAME 0 Depth"},
    {"e code=0000 elementURI=\"Depth.depth\" type=02\n", nullptr, "ELEMENT 0 Depth.depth"},
    {"a code=0000 owner=0000 element=0000 universal=3FFF unitName=\"meter\" type=0B size=0003 fl=01\n", nullptr,
     "ACCESSOR <a code=0000 owner=0000 element=0000 universal=3FFF unitName=\"meter\" type=0B size=0003 rw=01"},
    {nullptr, "00 80 1A 86 5C 8B FC 04", "2012-06-01T12:30:00.400Z,1338553800.400000 START_CYCLE"},
    {nullptr, "0C 0B 71 02 00 C0 3F", "2012-06-01T12:30:00.410Z,1338553800.410000 Depth==>Depth.depth=1.500000 m"},
    {nullptr, "0C 03 19 64", "2012-06-01T12:30:00.810Z,1338553800.810000 Depth==>Depth.depth=1.500000 m"},
    {nullptr, "0E 52 0A 68 65 6C 6C 6F", "2012-06-01T12:30:00.420Z,1338553800.420 [Depth](INFO): hello"},
    {nullptr, "18 76 04 03 00 00", "2012-06-01T12:30:00.430Z,1338553800.430 Depth COMPONENT_ACTION Running Loop=3"},
};
static const size_t WORKED_LOG_DIRECTORY = 4;  // entries of its directory

// The bytes of the entries first .. last - 1.
inline Str WorkedLogBytes(size_t first = 0, size_t last = sizeof WORKED_LOG / sizeof *WORKED_LOG) {
    Str bytes;
    for (size_t i = first; i < last; ++i) bytes += WORKED_LOG[i].toBytes();
    return bytes;
}
