#include "logger/reader/FileLogReader.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

static const char* const EMPTY_FILE = "The file is empty";

FileLogReader::FileLogReader(const Str& filebase, LogReader* logReader)
    : LogReader(logReader->getLog()),
      filebase_(filebase),
      fileStream_(nullptr, false),
      logReader_(logReader),
      damage_(logReader->getMessageGate(), logReader->getEntryNotes(), log_) {
    log_.beginReading(filebase);
    if (!open(filebase_)) {
        openError_ = strerror(errno);
        openNextPart();
    }
    logReader_->setInStream(fileStream_);
}

FileLogReader::~FileLogReader() {
    fileStream_.close();
    log_.endReading();
}

Str FileLogReader::nextFilename() {
    return FilesOf(filebase_, log_).part(nextFilenum_++);
}

// Null, and errno says why, when there is no such file. A directory would open too, but give nothing and never end.
static FILE* OpenRegular(const Str& path) {
    struct stat status;
    if (stat(path.cStr(), &status) != 0) return nullptr;
    if (S_ISREG(status.st_mode)) return fopen(path.cStr(), "rb");
    errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return nullptr;
}

bool FileLogReader::open(const Str& path) {
    file_ = OpenRegular(path);
    if (file_ == nullptr) return false;
    openError_ = Str::EMPTY_STR;
    fileStream_.setFile(file_, path, true);
    fileStream_.zeroBytesRead();
    fileStream_.zeroTotalBytesRead();
    origin_ = 0;
    damage_.beginFile(path);
    return true;
}

bool FileLogReader::isFileEmpty() {
    struct stat status;
    return fstat(fileno(file_), &status) == 0 && status.st_size == 0;
}

bool FileLogReader::openUnlessEmpty(const Str& path) {
    if (!open(path)) return false;
    if (!isFileEmpty()) return true;
    fileStream_.close();
    file_ = nullptr;
    return false;
}

// Why nothing can be read of what stands under that name; empty when nothing does.
static Str WhyUnread(const Str& path) {
    struct stat status;
    if (stat(path.cStr(), &status) != 0) return Str();
    if (S_ISREG(status.st_mode) && status.st_size == 0) return EMPTY_FILE;
    FILE* const file = OpenRegular(path);
    if (file == nullptr) return strerror(errno);
    fclose(file);
    return Str();
}

bool FileLogReader::matchAndOpen(const Str& candidate) {
    return FilesOf(filebase_, log_).offerPart(candidate, [&](const Str& name) {
        return name == candidate ? openUnlessEmpty(name) : open(name);
    });
}

unsigned int FileLogReader::readBy(Reading reading) {
    const unsigned int n = readOpenFile(reading);
    if (n > 0) return n;
    closeFile();
    if (nextFilenum_ == 0 || !openNextPart()) return 0;
    return readOpenFile(reading);
}

// A number that is left out is reported when a part with a higher one shows that the log goes on.
bool FileLogReader::openNextPart() {
    const Str part = nextFilename();
    const bool isOpen = matchAndOpen(part);
    const Str reason = isOpen ? Str() : WhyUnread(part);
    if (!isOpen && reason.isEmpty()) {
        if (entriesRead_ > 0) missingParts_.push(new Str(part));
        return false;
    }
    for (unsigned int i = 0; i < missingParts_.size(); ++i) report("Part " + *missingParts_.at(i) + " is missing");
    missingParts_.clear();
    if (!isOpen) report("Cannot read part " + part + ": " + reason);
    if (isOpen && isFileEmpty()) report(Str("Cannot read part ") + fileStream_.getName() + ": " + EMPTY_FILE);
    return isOpen;
}

unsigned int FileLogReader::readOpenFile(Reading reading) {
    while (isReadable()) {
        const unsigned int n = attempt(reading);
        entriesRead_ += n;
        if (n > 0) return n;
    }
    return 0;
}

unsigned int FileLogReader::readEntries() {
    return attempt(&LogReader::read);
}

// After damage the entries are read one by one until it is told how far it went.
unsigned int FileLogReader::attempt(Reading reading) {
    const long long start = position();
    damage_.beginAttempt();
    const unsigned int n = damage_.isInStretch() ? logReader_->read() : (logReader_.get()->*reading)();
    if (n > 0) {
        damage_.entriesRead(n, start, position());
    } else {
        goOnAfter(start);
    }
    return n;
}

// An attempt that gave nothing: what can be made nothing of is tried again from its second byte on. An entry that the
// end of the file cuts off counts as damage too.
void FileLogReader::goOnAfter(long long start) {
    const bool atEnd = fileStream_.eof();
    const bool failed = logReader_->hasError() || (atEnd && position() > start);
    damage_.nothingRead(failed, position());
    if (logReader_->hasError() && !atEnd) stepTo(start + 1);
}

void FileLogReader::stepTo(long long position) {
    if (fileStream_.seekTo(position)) origin_ = position - static_cast<long long>(fileStream_.getTotalBytesRead());
}

bool FileLogReader::isReadable() {
    return file_ != nullptr && !fileStream_.eof() && !fileStream_.hasFailed();
}

void FileLogReader::closeFile() {
    if (file_ == nullptr) return;
    damage_.endFile(position());
    bytesInClosedFiles_ += position();
    const int error = fileStream_.readError();
    if (error != 0) report(Str("Cannot read ") + fileStream_.getName() + ": " + strerror(error));
    fileStream_.close();
    file_ = nullptr;
}

void FileLogReader::report(const Str& text) {
    MessageGate* const gate = logReader_->getMessageGate();
    if (gate != nullptr) gate->getOutside().syslog(text, Syslog::ERROR);
}
