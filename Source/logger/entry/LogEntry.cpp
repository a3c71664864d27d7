#include "logger/entry/LogEntry.h"

#include "io/InStream.h"
#include "io/OutStream.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/entry/EntryStream.h"
#include "logger/entry/EventEntry.h"
#include "logger/entry/SyslogEntry.h"
#include "utils/TextBuffer.h"

const Str LogEntry::UNKNOWN("Unknown");

static const char* const TYPE_NAMES[] = {"EVENT", "DIRECTORY", "DATA", "SYSLOG"};  // by LogEntry::Type

LogEntry::LogEntry(Type type, const Timestamp& t, Log& log)
    : type_(type), timestamp_(t.isSet() ? t : Timestamp::Now()), log_(&log) {}

const char* LogEntry::TypeToString(Type type) {
    return type >= EVENT_LOG_ENTRY && type <= SYSLOG_LOG_ENTRY ? TYPE_NAMES[type] : "(undefined)";
}

Str LogEntry::toString(const Unit* unit) const {
    TextBuffer text;
    appendTo(text, unit);
    return text.toStr();
}

LogEntry* LogEntry::Read(Timestamp& timeBase, Timespan& timeAdjust, InStream& in, const Logger& logger, bool& error,
                         Values values, Log& log) {
    unsigned short header = 0;
    if (!in.takeUShortCompact(header) || in.eof()) return nullptr;
    switch (header & TYPE_MASK) {
        case EVENT_LOG_ENTRY:
            return EventEntry::Read(timeBase, timeAdjust, in, header, logger, error, log);
        case DIRECTORY_LOG_ENTRY:
            return DirectoryEntry::Read(timeBase, in, header, logger, error, log);
        case DATA_LOG_ENTRY:
            return DataEntry::Read(timeBase, in, header, logger, error, values, log);
        default:
            return SyslogEntry::Read(timeBase, timeAdjust, in, header, logger, error, log);
    }
}

bool LogEntry::ReadTimestamp(Timestamp& t, bool& flag, InStream& in, const Logger& logger,
                             Logger::TimePrecisionType precision, const Log& log) {
    flag = false;
    return TakeTimestamp(t, flag, in, precision, log.version().timesHaveFlag()) ||
           EntryStream::Fail(logger, in, "End of Binary File Reached while reading LogEntry Timestamp");
}

unsigned int LogEntry::writeTimestamp(const Timestamp& base, bool flag, OutStream& out,
                                      Logger::TimePrecisionType precision) const {
    const Timespan delta = timestamp_ - base;
    const bool timesHaveFlag = log_->version().timesHaveFlag();
    const bool inMicros = precision == Logger::TIME_PRECISION_MICROS || !timesHaveFlag;
    unsigned long long packed =
        static_cast<unsigned long long>(inMicros ? delta.asCompactMicros() : delta.asCompactMillis());
    if (timesHaveFlag) packed = packed << 1 | (flag ? 1 : 0);
    return static_cast<unsigned int>(EntryStream::WriteCompact(out, static_cast<long long>(packed)));
}
