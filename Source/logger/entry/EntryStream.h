#pragma once

#include <cstddef>

#include "data/Logger.h"
#include "io/InStream.h"
#include "io/OutStream.h"

// What the entry kinds share when they move their bytes.
namespace EntryStream {
// Unlike the plain compact forms these bring back every value. Bytes written.
size_t WriteCompact(OutStream& out, unsigned short value);  // header words, codes and lengths
size_t WriteCompact(OutStream& out, long long value);       // times

// Logs the text at ERROR; always false, so that a reader can say: return ok || Fail(...). Of a stream that cannot be
// read nothing is said: what it did not give is neither wrong nor at the end of data.
bool Fail(const Logger& logger, InStream& in, const char* text);
// Says where the stream stands, as the second line of a message.
void LogPosition(const Logger& logger, const InStream& in);
}  // namespace EntryStream
