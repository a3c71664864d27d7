#pragma once

#include "io/InStream.h"

class EntryNotes;
class MessageGate;

// Delivers the entries of a log, one call after the other.
class LogReader {
public:
    LogReader() = default;
    virtual ~LogReader() {}
    LogReader(const LogReader&) = delete;
    LogReader& operator=(const LogReader&) = delete;

    virtual void setInStream(InStream& in) { logStream_ = &in; }  // borrowed, outlives the reader's use
    virtual bool isValid() { return logStream_ != nullptr && logStream_->isReadable(); }
    virtual bool hasError() { return error_; }  // the bytes just read are no entry
    virtual void setError(bool error) { error_ = error; }
    virtual unsigned int read() = 0;  // the number of entries handled, 0 when there was none to handle
    // Where the reader's messages pass, for whoever steps it over damage; null when it logs nothing.
    virtual MessageGate* getMessageGate() { return nullptr; }
    virtual EntryNotes* getEntryNotes() { return nullptr; }  // what it notes of the entries; null when nothing

protected:
    InStream* logStream_ = nullptr;  // borrowed
    bool error_ = false;
};
