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
static const unsigned short LAST_VERSION_WITHOUT_FLAG = 3;

LogEntry::LogEntry(Type type, const Timestamp& t)
    : type_(type), timestamp_(t == Timestamp::NOT_SET_TIME ? Timestamp::Now() : t) {}

const char* LogEntry::TypeToString(Type type) {
    return type >= EVENT_LOG_ENTRY && type <= SYSLOG_LOG_ENTRY ? TYPE_NAMES[type] : "(undefined)";
}

bool LogEntry::TimesHaveFlag() {
    return DirectoryEntry::CurrentLogVersion_ > LAST_VERSION_WITHOUT_FLAG;
}

void LogEntry::appendTo(TextBuffer& text, const Unit* unit) const {
    text.append(toString(unit));
}

LogEntry* LogEntry::Read(Timestamp& timeBase, Timespan& timeAdjust, InStream& in, const Logger& logger, bool& error,
                         Values values) {
    unsigned short header = 0;
    if (in.readUShortCompact(header).ended()) return nullptr;
    switch (header & TYPE_MASK) {
        case EVENT_LOG_ENTRY:
            return EventEntry::Read(timeBase, timeAdjust, in, header, logger, error);
        case DIRECTORY_LOG_ENTRY:
            return DirectoryEntry::Read(timeBase, in, header, logger, error);
        case DATA_LOG_ENTRY:
            return DataEntry::Read(timeBase, in, header, logger, error, values);
        default:
            return SyslogEntry::Read(timeBase, timeAdjust, in, header, logger, error);
    }
}

bool LogEntry::ReadTimestamp(Timestamp& t, bool& flag, InStream& in, const Logger& logger,
                             Logger::TimePrecisionType precision) {
    long long packed = 0;
    flag = false;
    if (in.readLongLongCompact(packed).ended()) {
        return EntryStream::Fail(logger, "End of Binary File Reached while reading LogEntry Timestamp");
    }
    if (!TimesHaveFlag()) {
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
    const bool inMicros = precision == Logger::TIME_PRECISION_MICROS || !TimesHaveFlag();
    unsigned long long packed =
        static_cast<unsigned long long>(inMicros ? delta.asCompactMicros() : delta.asCompactMillis());
    if (TimesHaveFlag()) packed = packed << 1 | (flag ? 1 : 0);
    return static_cast<unsigned int>(EntryStream::WriteCompact(out, static_cast<long long>(packed)));
}
