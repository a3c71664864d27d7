#pragma once

#include "data/Log.h"
#include "io/InStream.h"

class EntryNotes;
class MessageGate;

// Delivers the entries of a log, which it borrows, one call after the other.
class LogReader {
public:
    explicit LogReader(Log& log = Log::Current()) : log_(log) {}  // borrowed
    virtual ~LogReader() {}
    LogReader(const LogReader&) = delete;
    LogReader& operator=(const LogReader&) = delete;

    Log& getLog() const { return log_; }
    virtual void setInStream(InStream& in) { logStream_ = &in; }  // borrowed, outlives the reader's use
    // It has a stream with a source, be that at its end.
    virtual bool isValid() { return logStream_ != nullptr && logStream_->isReadable(); }
    virtual bool hasError() { return error_; }  // the bytes just read are no entry
    virtual void setError(bool error) { error_ = error; }
    virtual unsigned int read() = 0;  // the number of entries handled, 0 when there was none to handle
    // The same for as many entries as follow one another without anything to tell of.
    virtual unsigned int readRun() { return read(); }
    // Where the reader's messages pass, for whoever steps it over damage; null when it logs nothing.
    virtual MessageGate* getMessageGate() { return nullptr; }
    virtual EntryNotes* getEntryNotes() { return nullptr; }  // what it notes of the entries; null when nothing

protected:
    Log& log_;
    InStream* logStream_ = nullptr;  // borrowed
    bool error_ = false;
};
