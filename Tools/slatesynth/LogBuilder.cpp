#include "LogBuilder.h"

#include <cstdio>

#include "logger/reader/LogDirectory.h"

unsigned int CountingLogWriter::writeHeader() {
    const unsigned int n = BinaryLogWriter::writeHeader();
    bytes_ += n;
    ++entries_;
    return n;
}

unsigned int CountingLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const unsigned int n = BinaryLogWriter::write(entry, unit);
    bytes_ += n;
    if (n > 0) ++entries_;
    return n;
}

LogBuilder::LogBuilder(const Str& path, int parts, int version)
    : path_(path), numbered_(parts > 0), writer_(new CountingLogWriter(file_)) {
    log_.version() = LogVersion(static_cast<unsigned short>(version));
    log_.directoryWrites().enable();
    engine_.addAssociation(writer_, nullptr);
}

bool LogBuilder::openNext() {
    close();
    const bool opened = file_.open(fileName(nextPart_).cStr(), false, false);
    noteError();
    if (!opened) return false;
    writer_->writeHeader();
    if (nextPart_ > 0) LogDirectory(log_).write(writer_);
    ++nextPart_;
    return true;
}

void LogBuilder::close() {
    file_.close();
    noteError();
}

void LogBuilder::noteError() {
    if (firstError_ == 0) firstError_ = file_.firstError();
}

Str LogBuilder::fileName(int part) const {
    if (!numbered_) return path_;
    char number[16];
    snprintf(number, sizeof(number), "%04d", part);
    return path_ + number;
}
