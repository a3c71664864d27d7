#pragma once

#include <memory>

#include "io/FileEncoder.h"
#include "io/FileOutStream.h"
#include "logger/engine/LogWriter.h"
#include "logger/writer/HasFilename.h"

// Gives a format writer a file to write to: opens and closes it with the format's header and footer, counts, flushes,
// and hands the finished file to an encoder.
// Errors: the first failure of a file to open, take data or close is one ERROR message; what was written stays, and is
// not encoded.
class FileLogWriter : public LogWriter, public HasFilename {
public:
    enum FlushFreq : int { FLUSH_ONCE = 0, FLUSH_PER_CYCLE = 1, FLUSH_PER_WRITE = 2 };

    // An empty filename opens nothing yet. The writer is shared; the encoder, which may be null, is taken over.
    FileLogWriter(const Str& filename, LogWriter* writer, bool append, FileEncoder* encoder);
    // Takes over a file that is already open, though standard output stays open at the end, and writes the header.
    FileLogWriter(FILE* file, LogWriter* writer);
    ~FileLogWriter() override;

    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    void endCycle() override;  // the format writer gets no endCycle
    void resetInputs() override;
    size_t heldBytes() override { return logWriter_->heldBytes(); }
    void freeMemory() override { logWriter_->freeMemory(); }
    bool isWhole() override { return !outcome_->isIncomplete() && logWriter_->isWhole(); }

    virtual bool valid();                                    // a file is open
    const Str& getFilename() override { return filename_; }  // empty when closed

    // Closes first; without append a file of that name is replaced. Always true: valid tells whether a file is open.
    bool open(const char* path, bool append);
    // With the format's footer, if a file is open; hands the finished file to the encoder.
    void close();
    void resetFilename(const Str& filename);                         // closes, then opens the other file
    void setFilename(const Str& filename) { filename_ = filename; }  // the open file goes by another name now
    void setFlushFreq(FlushFreq flushFreq) { flushFreq_ = flushFreq; }
    bool isWritable() { return fileStream_.isWritable(); }              // as valid
    unsigned int getBytesInFile() const { return bytesInFile_; }        // without header and footer; at most 4294967295
    unsigned int getEntriesWritten() const { return entriesWritten_; }  // since the file was opened
    FileEncoder* getFileEncoder() { return fileEncoder_.get(); }        // borrowed; null when there is none

protected:
    LogWriter* const logWriter_;  // shared
    FileOutStream fileStream_;
    unsigned int entriesWritten_ = 0;
    unsigned int bytesInFile_ = 0;
    const bool initFilename_;  // a file name was given at construction
    Str filename_;
    FlushFreq flushFreq_ = FLUSH_ONCE;
    bool writtenInCycle_ = false;
    const std::unique_ptr<FileEncoder> fileEncoder_;

private:
    void adoptWriter();
    void checkStream(const char* failedTo) {
        if (fileStream_.firstError() != 0) tellFailure(failedTo);
    }
    void tellFailure(const char* failedTo);
    void encode();
};
