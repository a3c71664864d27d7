#pragma once

#include <cstdio>
#include <memory>

#include "io/FileInStream.h"
#include "logger/reader/DamageWatch.h"
#include "logger/reader/LogFiles.h"
#include "logger/reader/LogReader.h"
#include "utils/FlexArray.h"
#include "utils/Str.h"

// Drives an entry reader over the files of one log: the file of the name given, or else its numbered parts, each also
// looked for as ".bak" and under the priority names. Steps over damage of any length. Only regular files are opened.
class FileLogReader : public LogReader {
public:
    FileLogReader(const Str& filebase, LogReader* logReader);  // owns the reader; the log is the reader's
    ~FileLogReader() override;

    // The entries handled by one call, 0 at the end of a file.
    unsigned int read() override { return readBy(&LogReader::read); }
    unsigned int readRun() override { return readBy(&LogReader::readRun); }
    // Reads to the end of the log. A numbered part may be missing where a later one is not, so the log has ended only
    // after MAX_ZERO_READS reads in a row gave nothing.
    void readAll() {
        readWhile([] { return true; });
    }
    template <typename GoesOn>
    void readWhile(GoesOn goesOn) {  // the same, but goesOn() is asked before each read
        for (int zeros = 0; zeros < MAX_ZERO_READS && goesOn();) zeros = readRun() > 0 ? 0 : zeros + 1;
    }
    virtual bool valid() { return file_ != nullptr; }  // a file is open

    unsigned int getEntriesRead() const { return entriesRead_; }  // in all
    // Of all files so far, damage included; a measure of how far the reading is.
    long long getBytesPassed() const { return bytesInClosedFiles_ + (file_ == nullptr ? 0 : position()); }
    // Why the name given did not open; empty when a file of the log did.
    const Str& getOpenError() const { return openError_; }

    Str nextFilename();                       // the name of the next numbered part
    bool matchAndOpen(const Str& candidate);  // the candidate, its ".bak", or one of its priority names
    unsigned int readEntries();               // one attempt; after an error the next one begins a byte later
    bool isReadable();                        // a file is open, and neither at its end nor broken

    static constexpr int MAX_ZERO_READS = LogFiles::MAX_MISSING;  // each tries the next number

    // The names under which a reader of the log looks for it.
    static LogFiles FilesOf(const Str& name, const Log& log = Log::Current()) {
        return LogFiles(name, log.getPriorityWords());
    }
    // Of the current log; borrowed, null for none.
    static void SetPriorityList(FlexArray<const char*>* list) { Log::Current().setPriorityWords(list); }

private:
    typedef unsigned int (LogReader::*Reading)();  // of the entry reader

    bool open(const Str& path);
    bool isFileEmpty();
    bool openUnlessEmpty(const Str& path);
    bool openNextPart();
    unsigned int readBy(Reading reading);
    unsigned int readOpenFile(Reading reading);
    unsigned int attempt(Reading reading);
    void closeFile();
    long long position() const { return origin_ + static_cast<long long>(fileStream_.getTotalBytesRead()); }
    void goOnAfter(long long start);
    void stepTo(long long position);
    void report(const Str& text);

    const Str filebase_;    // the name given
    FILE* file_ = nullptr;  // owned by the stream; null when none is open
    FileInStream fileStream_;
    unsigned int entriesRead_ = 0;
    const std::unique_ptr<LogReader> logReader_;
    unsigned int nextFilenum_ = 0;  // of the next part; stays 0 when the name given opened directly
    DamageWatch damage_;
    long long origin_ = 0;  // position in the file less the bytes counted by the stream
    long long bytesInClosedFiles_ = 0;
    Str openError_;
    FlexArray<Str*> missingParts_{true};  // left out since the last part; owned
};
