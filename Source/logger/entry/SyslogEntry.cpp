#include "logger/entry/SyslogEntry.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "logger/entry/EntryStream.h"
#include "logger/entry/EntryText.h"
#include "logger/entry/TimeBounds.h"

RecyclingPool SyslogEntry::Pool_("SyslogEntry", sizeof(SyslogEntry));
const PoolDrain SyslogEntry::PoolDrain_(Pool_);

static const char GPS_FIX[] = "GPS fix at: ";  // followed by seconds since the epoch
static const size_t GPS_FIX_LENGTH = sizeof GPS_FIX - 1;

SyslogEntry::SyslogEntry(const Str& message, Syslog::Severity severity, const CodedStr& facility, const Timestamp& t,
                         Log& log)
    : LogEntry(SYSLOG_LOG_ENTRY, t, log), message_(message), severity_(severity), loggerFacility_(facility) {}

unsigned int SyslogEntry::write(Timestamp& timeBase, OutStream& out) const {
    const unsigned int facility = loggerFacility_.getCode();
    if (severity_ == Syslog::NONE || facility > MAX_FACILITY) return 0;
    const unsigned int header = static_cast<unsigned int>(severity_) | SYSLOG_LOG_ENTRY | facility << FACILITY_SHIFT;
    size_t n = EntryStream::WriteCompact(out, static_cast<unsigned short>(header));
    n += writeTimestamp(timeBase, true, out, Logger::TIME_PRECISION_MILLIS);
    const size_t length = message_.length() < MAX_MESSAGE_LENGTH ? message_.length() : MAX_MESSAGE_LENGTH;
    n += EntryStream::WriteCompact(out, static_cast<unsigned short>(length));
    return static_cast<unsigned int>(n + out.write(message_.data(), length).bytesWritten());
}

static bool ReadMessage(InStream& in, const Logger& logger, Str& message) {
    unsigned short length = 0;
    if (!in.takeUShortCompact(length)) {
        return EntryStream::Fail(logger, in, "Encountered eof while reading Syslog entry length");
    }
    char text[SyslogEntry::MAX_MESSAGE_LENGTH];
    if (!in.readExactly(text, length)) {
        return EntryStream::Fail(logger, in, "Encountered eof while reading Syslog message");
    }
    message = Str(text, length);
    return true;
}

// The time of the fix that the message reports; false when it reports none.
static bool ParseGpsFix(const Str& message, Timestamp& fix) {
    if (message.length() < GPS_FIX_LENGTH || memcmp(message.data(), GPS_FIX, GPS_FIX_LENGTH) != 0) return false;
    const double seconds = strtod(message.cStr() + GPS_FIX_LENGTH, nullptr);
    if (!(seconds > 0) || std::isinf(seconds)) return false;
    fix = Timestamp(seconds);
    return fix.isSet();
}

SyslogEntry* SyslogEntry::Read(Timestamp& timeBase, Timespan& timeAdjust, InStream& in, unsigned short header,
                               const Logger& logger, bool& error, Log& log) {
    const unsigned short code = static_cast<unsigned short>(header >> FACILITY_SHIFT);
    const CodedStr* facility = log.getName(code);
    if (facility == nullptr) {
        logger.syslog(Str("No LoggerFacility found for code ") + Str(code, 10, 0), Syslog::ERROR);
        error = true;
        return nullptr;
    }
    Timestamp t = timeBase;
    bool flag = false;
    Str message;
    if (!ReadTimestamp(t, flag, in, logger, Logger::TIME_PRECISION_MILLIS, log)) return nullptr;
    if (!ReadMessage(in, logger, message) || message.isEmpty()) return nullptr;
    SyslogEntry* entry = new SyslogEntry(message, static_cast<Syslog::Severity>(header & SEVERITY_MASK), *facility,
                                         Timestamp::EPOCH_START_TIME, log);
    entry->setTimestamp(t);
    Timestamp fix;
    if (timeAdjust != Timespan::INVALID_TIMESPAN && ParseGpsFix(message, fix)) {
        const Timespan shift = fix - t;
        timeBase += shift;
        // Without a time base the vehicle's time is unknown: the difference says nothing about its clock, and carried
        // along it would shift every cycle start by decades.
        if (TimeBounds::Holds(t)) timeAdjust += shift;
        entry->setTimestamp(fix);
    }
    return entry;
}

void SyslogEntry::appendTo(TextBuffer& text, const Unit*) const {
    if (severity_ == Syslog::NONE) return;
    EntryText::AppendStamp(text, timestamp_, 3);
    text.append('[').append(loggerFacility_).append("](").append(Syslog::SeverityToString(severity_)).append("): ");
    text.append(message_);
}

Str SyslogEntry::toKmlString(const Unit*) const {
    if (severity_ == Syslog::NONE) return Str();
    TextBuffer text;
    text.append(timestamp_.toSmallString()).append(" [").append(loggerFacility_).append("]:");
    return text.append(message_).toStr();
}
