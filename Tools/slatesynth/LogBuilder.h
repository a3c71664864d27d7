#pragma once

#include "data/Log.h"
#include "io/FileOutStream.h"
#include "logger/engine/DirectoryFeed.h"
#include "logger/engine/LogEngine.h"
#include "logger/writer/binary/BinaryLogWriter.h"

// A binary writer that counts what it writes.
class CountingLogWriter final : public BinaryLogWriter {
public:
    // out is borrowed.
    explicit CountingLogWriter(OutStream& out) : BinaryLogWriter(out, true) {}
    unsigned int writeHeader() override;
    unsigned int write(const LogEntry* entry, const Unit* unit) override;

    unsigned long long bytes() const { return bytes_; }
    unsigned long long entries() const { return entries_; }  // the header of every part is one

private:
    unsigned long long bytes_ = 0;
    unsigned long long entries_ = 0;
};

// The writing side of the vehicle's log: an engine with one binary writer on a file, to which the log's
// directory entries go too. As long as it lives, its log is this thread's current one.
class LogBuilder {
public:
    // parts 0: one file at path; else path0000, path0001, ...
    LogBuilder(const Str& path, int parts, int version);
    ~LogBuilder() { close(); }
    LogBuilder(const LogBuilder&) = delete;
    LogBuilder& operator=(const LogBuilder&) = delete;

    // Opens the first file, or closes one part and opens the next, which begins with the version and everything that
    // the Slate knows. False when the file cannot be opened; firstError() tells why.
    bool openNext();
    void log(LogEntry& entry) { engine_.processEntry(&entry); }  // into the open part; the entry stays the caller's
    void close();                                                // a failure shows in firstError

    Str fileName(int part) const;                   // parts count from 0; without parts always the path
    int filesWritten() const { return nextPart_; }  // begun, the open one included
    unsigned long long bytesWritten() const { return writer_->bytes(); }  // over all parts
    unsigned long long entriesWritten() const { return writer_->entries(); }
    int firstError() const { return firstError_; }  // an errno; 0 as long as all went well

private:
    void noteError();

    const Str path_;
    const bool numbered_;
    int nextPart_ = 0;
    int firstError_ = 0;
    Log log_;
    const Log::Use use_{log_};
    FileOutStream file_;
    LogEngine engine_;
    DirectoryFeed feed_{log_, engine_};
    CountingLogWriter* writer_;  // shared with the engine's association, which deletes it
};
