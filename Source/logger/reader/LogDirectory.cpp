#include "logger/reader/LogDirectory.h"

#include "data/DirectorySink.h"
#include "data/Slate.h"
#include "logger/engine/LogWriter.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/reader/BinaryLogReader.h"
#include "logger/reader/FileLogReader.h"
#include "logger/reader/VersionScope.h"

// The versions in force after each one that a log or side file tells: one that is not known changes nothing.
class LogDirectory::ToldVersions {
public:
    void add(LogVersion inForce) {
        if (!areAny()) first_ = inForce;
        inForce_ |= 1u << inForce.inForce();
    }
    bool areAny() const { return inForce_ != 0; }
    bool agreeWith(const ToldVersions& other) const {  // they share one, or one tells none
        return !areAny() || !other.areAny() || (inForce_ & other.inForce_) != 0;
    }
    LogVersion first() const { return first_; }

private:
    unsigned int inForce_ = 0;  // a bit each; no known version is as high as 32
    LogVersion first_;
};

// Reads a log for its directory alone: entries of the other kinds have no length, so they are decoded to be passed
// over.
class LogDirectory::Scanner : public BinaryLogReader {
public:
    explicit Scanner(Log& log)
        : BinaryLogReader(log.getLogger(), Timestamp::NOT_SET_TIME, Timestamp::NOT_SET_TIME, Str::EMPTY_STR, nullptr,
                          nullptr, log) {
        setValues(LogEntry::SKIP_VALUES);
        setTimeAdjust(Timespan::INVALID_TIMESPAN);  // a wrong fix must not make entries look damaged
    }
    bool foundRecords() const { return foundRecords_; }
    bool isPastHead() const { return isPastHead_; }
    const ToldVersions& getVersions() const { return versions_; }

private:
    void handle(LogEntry& entry) override {
        if (entry.getType() == LogEntry::DIRECTORY_LOG_ENTRY) {
            handleRecord(static_cast<const DirectoryEntry&>(entry));
        } else {
            isPastHead_ = true;
        }
    }
    void handleRecord(const DirectoryEntry& record) {
        if (record.getDirectoryType() == DirectoryEntry::VERSION) {
            versions_.add(log_.version());
        } else {
            foundRecords_ = true;
        }
    }

    bool foundRecords_ = false;  // a name, an element or an access; a version alone is no directory
    bool isPastHead_ = false;    // an entry of another kind was met
    ToldVersions versions_;
};

// As long as it lives the log says nothing, if so told.
class LogSilence {
public:
    LogSilence(Log& log, bool isWanted) : log_(log), logger_(log.getLogger()) {
        if (isWanted) log.setLogger(nullptr);
    }
    ~LogSilence() { log_.setLogger(&logger_); }
    LogSilence(const LogSilence&) = delete;
    LogSilence& operator=(const LogSilence&) = delete;

private:
    Log& log_;
    const Logger& logger_;
};

void LogDirectory::read(const Str& path, bool showMessages) {
    VersionScope version(log_);
    const ToldVersions versions = scan(path, showMessages);
    if (versions.areAny()) version.leave(versions.first());
}

LogDirectory::ToldVersions LogDirectory::scan(const Str& path, bool showMessages) {
    const LogSilence silence(log_, !showMessages);
    log_.takeBackCodesNotRead();
    Scanner* const scanner = new Scanner(log_);
    FileLogReader file(path, scanner);
    file.readAll();
    if (scanner->foundRecords()) log_.setDirectoryRead();
    return scanner->getVersions();
}

// Reads what the log says before its first other entry, up to the first contradiction.
LogDirectory::ToldVersions LogDirectory::readHead(const Str& name) {
    const LogSilence silence(log_, true);
    Scanner* const scanner = new Scanner(log_);
    FileLogReader file(name, scanner);
    while (file.isReadable() && !scanner->isPastHead() && !scanner->hasError() && !log_.isAnythingRetold()) {
        file.readEntries();
    }
    return scanner->getVersions();
}

void LogDirectory::readSideFile(const Str& name, bool showMessages) {
    VersionScope version(log_);
    const LogVersion versionBefore = log_.version();
    const Str path = name + ".dir";
    const ToldVersions versionsThere = scan(path, showMessages);
    version.leaveAsIs();
    if (!log_.isDirectoryRead()) return;

    log_.setSideFile(path);
    log_.version() = versionBefore;
    const ToldVersions versions = readHead(name);
    const Str contradiction = versions.agreeWith(versionsThere) ? log_.describeContradiction() : Str("the log version");
    if (versions.areAny() || !contradiction.isEmpty()) version.leave(versionBefore);
    if (contradiction.isEmpty()) return;
    log_.clearDirectory();
    if (!showMessages) return;
    log_.getLogger().syslog(
        "Log " + name + " contradicts its side file " + path + ": " + contradiction + "; the side file is left aside",
        Syslog::ERROR);
}

static DirectoryEntry EntryOf(CodedStr& name, Log& log) {
    return DirectoryEntry(static_cast<const CodedStr*>(&name), log);
}

template <typename Item>
static DirectoryEntry EntryOf(Item& item, Log& log) {
    return DirectoryEntry(&item, log);
}

template <typename Item>
void LogDirectory::writeEntry(Item& item, LogWriter* writer) {
    DirectorySink* const sink = log_.directoryWrites().getSink();
    if (writer != nullptr) {
        const DirectoryEntry entry = EntryOf(item, log_);
        writer->write(&entry, nullptr);
    } else if (sink != nullptr) {
        sink->takeNew(item);
    }
}
template void LogDirectory::writeEntry(CodedStr&, LogWriter*);
template void LogDirectory::writeEntry(ElementURI&, LogWriter*);
template void LogDirectory::writeEntry(DataAccess&, LogWriter*);

// Without a writer only the items that are new to the log are of interest.
template <typename Item>
void LogDirectory::writeItems(const FlexArray<Item*>& items, LogWriter* writer) {
    for (int i = 0; i <= items.getMaxIndex(); ++i) {
        Item* const item = items.at(static_cast<unsigned int>(i));
        const bool isNew = log_.giveNextCode(item);
        if (writer != nullptr || isNew) writeEntry(*item, writer);
    }
}

void LogDirectory::write(LogWriter* writer) {
    writeItems(log_.getNames(), writer);
    writeItems(log_.getElementURIs(), writer);
    writeItems(log_.getDataAccesses(), writer);
}

// What the Slate offers of it. `restarted` makes no difference: the whole directory is written in either case.

void Slate::ReadDirectory(const Str& path) {
    LogDirectory(CurrentLog()).read(path);
}

void Slate::WriteDirectory(LogWriter* writer, bool) {
    LogDirectory(CurrentLog()).write(writer);
}

void Slate::WriteElementURIEntry(ElementURI* uri, LogWriter* writer, bool) {
    LogDirectory(CurrentLog()).writeEntry(*uri, writer);
}

void Slate::WriteNameEntry(CodedStr* name, LogWriter* writer, bool) {
    LogDirectory(CurrentLog()).writeEntry(*name, writer);
}

void Slate::WriteDataAccessEntry(DataAccess* access, LogWriter* writer, bool) {
    LogDirectory(CurrentLog()).writeEntry(*access, writer);
}
