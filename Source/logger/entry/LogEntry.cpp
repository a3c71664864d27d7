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
    : type_(type), timestamp_(t == Timestamp::NOT_SET_TIME ? Timestamp::Now() : t), log_(&log) {}

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
    if (in.readUShortCompact(header).ended()) return nullptr;
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
    long long packed = 0;
    flag = false;
    if (in.readLongLongCompact(packed).ended()) {
        return EntryStream::Fail(logger, "End of Binary File Reached while reading LogEntry Timestamp");
    }
    if (!log.version().timesHaveFlag()) {
        flag = true;
        t.addFromMicros(packed);
        return true;
    }
    flag = (packed & 1) != 0;
    packed >>= 1;
    if (precision == Logger::TIME_PRECISION_MICROS) t.addFromMicros(packed);
    if (precision == Logger::TIME_PRECISION_MILLIS) t.addFromMillis(packed);
    return true;
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
