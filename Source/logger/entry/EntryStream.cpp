#include "logger/entry/EntryStream.h"

namespace EntryStream {

// From here up the compact writer takes a value for a negative one.
static const unsigned short FIRST_WIDE = 0xC000;

size_t WriteCompact(OutStream& out, unsigned short value) {
    return (value < FIRST_WIDE ? out.writeUShortCompact(value) : out.writeUShortWide(value)).bytesWritten();
}

bool Fail(const Logger& logger, const char* text) {
    logger.syslog(text, Syslog::ERROR);
    return false;
}

void LogPosition(const Logger& logger, const InStream& in) {
    logger.syslog("inStream at 0x", in.getTotalBytesRead(), Syslog::ERROR);
}

}  // namespace EntryStream
