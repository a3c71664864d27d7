#pragma once

#include "data/Log.h"
#include "data/Logger.h"
#include "units/Unit.h"
#include "utils/Str.h"
#include "utils/Timespan.h"
#include "utils/Timestamp.h"

class InStream;
class OutStream;
class TextBuffer;

// One entry of a log, which outlives it: what every kind shares. An entry in the log is a header word, its time
// relative to a running time base, and a body by kind; there is no length.
class LogEntry {
public:
    enum Type : int {
        NOT_LOG_ENTRY = -1,
        EVENT_LOG_ENTRY = 0,
        DIRECTORY_LOG_ENTRY = 1,
        DATA_LOG_ENTRY = 2,
        SYSLOG_LOG_ENTRY = 3,
    };
    static constexpr int TYPE_COUNT = 4;
    static constexpr unsigned short TYPE_MASK = 3;  // bits 0-1 of the header word
    static const Str UNKNOWN;                       // stands for a name that the log does not give

    // What a reader does with the values that data entries carry: a scan of the directory passes over them.
    enum Values : int { STORE_VALUES, SKIP_VALUES };

    LogEntry(Type type, const Timestamp& t, Log& log = Log::Current());  // NOT_SET_TIME stands for now
    virtual ~LogEntry() {}

    // Appends the entry in the log's form, timed against timeBase (a cycle start sets it); the number of bytes written,
    // 0 for an entry that the log cannot hold.
    virtual unsigned int write(Timestamp& timeBase, OutStream& out) const = 0;
    // The entry's line of text, a value in the unit given (null: its own); empty for an entry that is not shown.
    virtual Str toString(const Unit* unit) const;
    // The same text at the end of the caller's.
    virtual void appendTo(TextBuffer& text, const Unit* unit) const = 0;

    Type getType() const { return type_; }
    // NOT_SET_TIME in a directory entry, which has no time.
    const Timestamp& getTimestamp() const { return timestamp_; }
    Log& getLog() const { return *log_; }  // whose codes the entry's codes are
    void setTimestamp(const Timestamp& t) { timestamp_ = t; }
    // Seconds since the epoch.
    void setTimestamp(double seconds) { timestamp_ = Timestamp(seconds); }

    // The next entry of the stream, owned by the caller; null at the end of data or for bytes that hold no entry (then
    // error may be set), with a message where there is something to say. A cycle start sets timeBase; a GPS fix moves
    // timeBase and adds to timeAdjust.
    static LogEntry* Read(Timestamp& timeBase, Timespan& timeAdjust, InStream& in, const Logger& logger, bool& error,
                          Values values = STORE_VALUES, Log& log = Log::Current());
    // The kind in one word, such as "SYSLOG"; "(undefined)" for none of the four.
    static const char* TypeToString(Type type);

    // Reads the entry time, by the log's version, and adds it to t; flag is the bit stored with it. False at the end of
    // data.
    static bool ReadTimestamp(Timestamp& t, bool& flag, InStream& in, const Logger& logger,
                              Logger::TimePrecisionType precision, const Log& log = Log::Current());
    // The same from a stream or a ByteCursor, without a message; false where it does not hold the time.
    template <typename Source>
    [[gnu::always_inline]] static bool TakeTimestamp(Timestamp& t, bool& flag, Source& from,
                                                     Logger::TimePrecisionType precision, bool timesHaveFlag);
    // The inverse; the number of bytes written.
    unsigned int writeTimestamp(const Timestamp& base, bool flag, OutStream& out,
                                Logger::TimePrecisionType precision) const;

protected:
    LogEntry(const LogEntry&) = default;
    LogEntry& operator=(const LogEntry&) = default;

    Type type_;
    Timestamp timestamp_;
    Log* log_;  // borrowed
};

// A number with the flag as its lowest bit. The oldest logs have no flag, and no times but precise ones.
template <typename Source>
inline bool LogEntry::TakeTimestamp(Timestamp& t, bool& flag, Source& from, Logger::TimePrecisionType precision,
                                    bool timesHaveFlag) {
    long long packed = 0;
    if (!from.takeLongLongCompact(packed)) return false;
    flag = !timesHaveFlag || (packed & 1) != 0;
    if (timesHaveFlag) packed >>= 1;
    if (precision == Logger::TIME_PRECISION_MICROS || !timesHaveFlag) t.addFromMicros(packed);
    if (precision == Logger::TIME_PRECISION_MILLIS && timesHaveFlag) t.addFromMillis(packed);
    return true;
}
