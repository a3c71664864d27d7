#include "logger/writer/SplitFileLogWriter.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {
const int NAME_ROOM = 255;     // bytes of a file's name, the terminating NUL included
const int MAX_ATTEMPTS = 100;  // numbers tried for one file: a folder that cannot be searched refuses them all
const int ANY_NUMBER = -1;

// True when a file of that name can be opened for all that is known: it exists, or only the file is missing.
bool IsUsable(const char* path) {
    return access(path, F_OK) == 0 || errno == ENOENT;
}
}  // namespace

SplitFileLogWriter::SplitFileLogWriter(const Str& filebase, LogWriter* writer, FileEncoder* encoder,
                                       unsigned int firstNumber)
    : SplitFileLogWriter(filebase, 0, Timespan::INVALID_TIMESPAN, writer, encoder, firstNumber) {}

SplitFileLogWriter::SplitFileLogWriter(const Str& filebase, unsigned int capacity, LogWriter* writer,
                                       FileEncoder* encoder, unsigned int firstNumber)
    : SplitFileLogWriter(filebase, capacity, Timespan::INVALID_TIMESPAN, writer, encoder, firstNumber) {}

SplitFileLogWriter::SplitFileLogWriter(const Str& filebase, const Timespan& span, LogWriter* writer,
                                       FileEncoder* encoder, unsigned int firstNumber)
    : SplitFileLogWriter(filebase, 0, span, writer, encoder, firstNumber) {}

SplitFileLogWriter::SplitFileLogWriter(const Str& filebase, unsigned int capacity, const Timespan& span,
                                       LogWriter* writer, FileEncoder* encoder, unsigned int firstNumber)
    : FileLogWriter(Str::EMPTY_STR, writer, false, encoder),
      filebase_(filebase),
      capacity_(capacity),
      nextFilenum_(firstNumber),
      span_(span),
      splitTime_(Timestamp::NOT_SET_TIME) {}

unsigned int SplitFileLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (isDue(entry)) split(true, ANY_NUMBER);
    if (isTimed() && entry != nullptr && bytesInFile_ == 0) splitTime_ = entry->getTimestamp() + span_;
    if (bytesInFile_ == 0 && !valid()) open(nextFilename(ANY_NUMBER).cStr(), false);
    return entry == nullptr ? 0 : FileLogWriter::write(entry, unit);
}

// Asked before the entry is written: a file ends with the first entry that takes it past its size.
bool SplitFileLogWriter::isDue(const LogEntry* entry) const {
    if (!isTimed()) return capacity_ != 0 && bytesInFile_ > capacity_;
    return entry != nullptr && splitTime_.isSet() && entry->getTimestamp() > splitTime_;
}

void SplitFileLogWriter::split(bool reopen, int number) {
    const Str finished = valid() ? filename_ : Str::EMPTY_STR;
    close();
    const bool isEncoded = fileEncoder_ != nullptr && outcome_->isWhole();
    if (!finished.isEmpty() && isEncoded) fileEncoder_->encode(finished.cStr(), nullptr, nullptr);
    if (reopen) open(nextFilename(number).cStr(), false);
}

void SplitFileLogWriter::resetFileBase(const Str& base, int number) {
    lockWrites();
    logWriter_->writeFooter();
    filebase_ = base;
    nextFilenum_ = static_cast<unsigned int>(number);
    split(true, ANY_NUMBER);
    unlockWrites();
}

// A file that exists is taken, to be replaced; only one that cannot be reached is passed over.
Str SplitFileLogWriter::nextFilename(int number) {
    if (number > 0) nextFilenum_ = static_cast<unsigned int>(number);
    char name[NAME_ROOM];
    int attempts = 0;
    do {
        snprintf(name, sizeof(name), "%s%04u", filebase_.cStr(), nextFilenum_++);
    } while (!IsUsable(name) && ++attempts < MAX_ATTEMPTS);
    return name;
}
