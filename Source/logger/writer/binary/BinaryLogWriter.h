#pragma once

#include "logger/engine/LogWriter.h"
#include "utils/Timestamp.h"

class DataEntry;

// Writes the entries in the log's own form, timed against a time base that starts anew with each file.
class BinaryLogWriter : public LogWriter {
public:
    // debug: each entry comes after its text, and a data entry after the types of its access and value, and is followed
    // by a line feed: a file for people, not for a reader of logs.
    BinaryLogWriter(bool withDirectory, bool debug) : withDirectory_(withDirectory), debug_(debug) {}
    // withDirectory: each file begins with the log's version. The stream is borrowed.
    BinaryLogWriter(OutStream& stream, bool withDirectory)
        : LogWriter(stream), withDirectory_(withDirectory), debug_(false) {}

    unsigned int writeHeader() override;
    unsigned int write(const LogEntry* entry, const Unit* unit) override;  // counts the entry alone

    // What is written next is timed as at the beginning of a file.
    virtual void resetTimeBase() { timeBase_ = Timestamp::NOT_SET_TIME; }

protected:
    Timestamp timeBase_ = Timestamp::NOT_SET_TIME;
    const bool withDirectory_;  // the file begins with a version entry
    const bool debug_;

private:
    void writeTrace(const LogEntry& entry, const Unit* unit);
    void writeTypes(const DataEntry& entry);
};
