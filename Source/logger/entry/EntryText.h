#pragma once

#include "utils/TextBuffer.h"
#include "utils/Timestamp.h"

// The pieces that the text lines of the entry kinds have in common.
namespace EntryText {
// "1338553800.410000": "%.*f" of the seconds since the epoch; decimals is 3 or 6.
void AppendSeconds(TextBuffer& text, const Timestamp& t, unsigned int decimals);
// "2012-06-01T12:30:00.410Z,1338553800.410000 ": the beginning of every line but a directory entry's.
void AppendStamp(TextBuffer& text, const Timestamp& t, unsigned int decimals);
void AppendTimes(TextBuffer& text, const Timestamp& t, unsigned int decimals);  // the same without the blank
void AppendName(TextBuffer& text, const Str* name);                             // "Unknown" for null
}  // namespace EntryText
