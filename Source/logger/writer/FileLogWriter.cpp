#include "logger/writer/FileLogWriter.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>

#include "io/OldFile.h"

namespace {
// A count of bytes that stays at its largest value instead of starting again from 0.
unsigned int ClippedCount(unsigned long long count) {
    return static_cast<unsigned int>(std::min<unsigned long long>(count, UINT_MAX));
}

unsigned int SizeOf(const char* path) {
    struct stat status;
    return stat(path, &status) == 0 ? ClippedCount(static_cast<unsigned long long>(status.st_size)) : 0;
}
}  // namespace

FileLogWriter::FileLogWriter(const Str& filename, LogWriter* writer, bool append, FileEncoder* encoder)
    : logWriter_(writer), initFilename_(!filename.isEmpty()), fileEncoder_(encoder) {
    adoptWriter();
    if (initFilename_) open(filename.cStr(), append);
}

FileLogWriter::FileLogWriter(FILE* file, LogWriter* writer)
    : logWriter_(writer), fileStream_(file, false), initFilename_(false) {
    adoptWriter();
    logWriter_->writeHeader();
}

FileLogWriter::~FileLogWriter() {
    close();
    Release(logWriter_);
}

void FileLogWriter::adoptWriter() {
    logStream_ = &fileStream_;
    logWriter_->addParent();
    logWriter_->setOutStream(fileStream_);
}

bool FileLogWriter::valid() {
    return fileStream_.isWritable();
}

bool FileLogWriter::open(const char* path, bool append) {
    const Str filename(path);  // path may be the name that close forgets
    if (valid()) close();
    filename_ = filename;
    entriesWritten_ = 0;
    if (!append) RemoveOldFile(filename_.cStr());
    bytesInFile_ = append ? SizeOf(filename_.cStr()) : 0;
    outcome_->begin();
    fileStream_.open(filename_.cStr(), append, false);
    checkStream("open");
    if (bytesInFile_ == 0) logWriter_->writeHeader();
    wroteFooter_ = false;
    return true;
}

void FileLogWriter::close() {
    if (valid()) {
        logWriter_->writeFooter();
        if (!logWriter_->isWhole()) outcome_->fail();
        fileStream_.close();
        checkStream("write");
        bytesInFile_ = 0;
    }
    if (initFilename_ && fileEncoder_ != nullptr && !filename_.isEmpty() && outcome_->isWhole()) encode();
    filename_ = Str::EMPTY_STR;
}

void FileLogWriter::encode() {
    if (fileEncoder_->encode(filename_.cStr(), nullptr, nullptr)) return;
    printf("Error encoding %s\n", filename_.cStr());
    outcome_->fail();
}

unsigned int FileLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (!isWritable()) return 0;
    const unsigned int bytes = logWriter_->write(entry, unit);
    if (bytes != 0) {
        writtenInCycle_ = true;
        if (flushFreq_ == FLUSH_PER_WRITE) fileStream_.flush();
    }
    checkStream("write");
    ++entriesWritten_;
    bytesInFile_ = ClippedCount(0ULL + bytesInFile_ + bytes);
    return bytes;
}

void FileLogWriter::endCycle() {
    if (!writtenInCycle_ || flushFreq_ != FLUSH_PER_CYCLE) return;
    fileStream_.flush();
    checkStream("write");
    writtenInCycle_ = false;
}

void FileLogWriter::resetInputs() {
    logWriter_->resetInputs();
}

void FileLogWriter::resetFilename(const Str& filename) {
    // It may be the name that close forgets.
    const Str next(filename);  // NOLINT(performance-unnecessary-copy-initialization)
    close();
    open(next.cStr(), false);
}

void FileLogWriter::tellFailure(const char* failedTo) {
    const int error = fileStream_.firstError();
    outcome_->fail(failedTo, filename_.isEmpty() ? Str(fileStream_.getName()) : filename_,
                   error == ENXIO ? "nobody reads it" : strerror(error), log_.getLogger());
}
