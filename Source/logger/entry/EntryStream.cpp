#include "logger/entry/EntryStream.h"

namespace EntryStream {

// From here up the compact writer takes a value for a negative one.
static const unsigned short FIRST_WIDE = 0xC000;

size_t WriteCompact(OutStream& out, unsigned short value) {
    return (value < FIRST_WIDE ? out.writeUShortCompact(value) : out.writeUShortWide(value)).bytesWritten();
}

static bool Fits(long long value, unsigned int bits) {
    return value >> (bits - 1) == value >> 63;
}

// The compact writer chooses a form of so many bits without a look at three of them, the sign among them.
static bool LosesSign(long long value, unsigned int bits) {
    const bool isNegative = value < 0;
    const bool isTestedBitSet = (value >> (bits - 4) & 1) != 0;
    return !Fits(value, bits) && Fits(value, bits + 1) && isTestedBitSet == isNegative;
}

// Such times are the rule a minute or two after a time base: after a fix, say, until the next cycle starts.
size_t WriteCompact(OutStream& out, long long value) {
    const bool losesSign = LosesSign(value, 28) || LosesSign(value, 56);
    return (losesSign ? out.writeLongLongWide(value) : out.writeLongLongCompact(value)).bytesWritten();
}

bool Fail(const Logger& logger, InStream& in, const char* text) {
    if (!in.hasFailed()) logger.syslog(text, Syslog::ERROR);
    return false;
}

void LogPosition(const Logger& logger, const InStream& in) {
    logger.syslog("inStream at 0x", in.getTotalBytesRead(), Syslog::ERROR);
}

}  // namespace EntryStream
