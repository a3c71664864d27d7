#pragma once

#include "logger/writer/FileLogWriter.h"
#include "utils/Timespan.h"
#include "utils/Timestamp.h"

// Writes a series of numbered files, base0001, base0002 and so on, each ended by its size or by the time it spans.
// The first is opened by the first write, which may be one of null.
class SplitFileLogWriter : public FileLogWriter {
public:
    // Without a limit; with one in bytes (0: none); with one in time (INVALID_TIMESPAN: none). The writer is shared;
    // the encoder, which may be null, is taken over.
    SplitFileLogWriter(const Str& filebase, LogWriter* writer, FileEncoder* encoder, unsigned int firstNumber);
    SplitFileLogWriter(const Str& filebase, unsigned int capacity, LogWriter* writer, FileEncoder* encoder,
                       unsigned int firstNumber);
    SplitFileLogWriter(const Str& filebase, const Timespan& span, LogWriter* writer, FileEncoder* encoder,
                       unsigned int firstNumber);

    unsigned int write(const LogEntry* entry, const Unit* unit) override;

    virtual void split(bool reopen, int number);              // finishes the file; reopen: and begins the next
    virtual void resetFileBase(const Str& base, int number);  // goes on with files of another name, from that number
    // Of the next file, which may exist already. A positive number is taken; any other goes on counting.
    virtual Str nextFilename(int number);

private:
    SplitFileLogWriter(const Str& filebase, unsigned int capacity, const Timespan& span, LogWriter* writer,
                       FileEncoder* encoder, unsigned int firstNumber);
    bool isTimed() const { return capacity_ == 0 && span_ != Timespan::INVALID_TIMESPAN; }
    bool isDue(const LogEntry* entry) const;

    Str filebase_;
    const unsigned int capacity_;  // bytes that end a file once there are more; 0: no limit
    unsigned int nextFilenum_;
    const Timespan span_;
    Timestamp splitTime_;  // a later entry opens the next file
};
