#include <utility>

#include "data/Slate.h"
#include "logger/engine/LogEngine.h"
#include "logger/engine/LogWriter.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/reader/BinaryLogReader.h"
#include "logger/reader/FileLogReader.h"

// The Slate's operations that need the reader, the engine and the writers.

// Reads a log for its directory alone: entries of the other kinds have no length, so they are decoded to be passed
// over.
class DirectoryScanner : public BinaryLogReader {
public:
    explicit DirectoryScanner(const Logger& logger)
        : BinaryLogReader(logger, Timestamp::NOT_SET_TIME, Timestamp::NOT_SET_TIME, Str::EMPTY_STR, nullptr, nullptr) {
        setValues(LogEntry::SKIP_VALUES);
        setTimeAdjust(Timespan::INVALID_TIMESPAN);  // a wrong fix must not make entries look damaged
    }
    bool foundRecords() const { return foundRecords_; }
    bool isPastHead() const { return isPastHead_; }
    const Slate::LogVersions& getVersions() const { return versions_; }

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
            versions_.add(DirectoryEntry::CurrentLogVersion_);
        } else {
            foundRecords_ = true;
        }
    }

    bool foundRecords_ = false;  // a name, an element or an access; a version alone is no directory
    bool isPastHead_ = false;    // an entry of another kind was met
    Slate::LogVersions versions_;
};

// As long as it lives the Slate says nothing, if so told.
class SlateSilence {
public:
    explicit SlateSilence(bool isWanted) : logger_(Slate::GetLogger()) {
        if (isWanted) Slate::SetLogger(nullptr);
    }
    ~SlateSilence() { Slate::SetLogger(&logger_); }
    SlateSilence(const SlateSilence&) = delete;
    SlateSilence& operator=(const SlateSilence&) = delete;

private:
    const Logger& logger_;
};

void Slate::ReadDirectory(const Str& path) {
    ReadDirectory(path, true);
}

void Slate::ReadDirectory(const Str& path, bool showMessages) {
    const LogVersions versions = ScanDirectory(path, showMessages);
    if (versions.areTold()) DirectoryEntry::CurrentLogVersion_ = versions.first_;
}

Slate::LogVersions Slate::ScanDirectory(const Str& path, bool showMessages) {
    const SlateSilence silence(!showMessages);
    TakeBackCodesNotRead();
    DirectoryScanner* const scanner = new DirectoryScanner(GetLogger());
    FileLogReader log(path, scanner);
    log.readAll();
    if (scanner->foundRecords()) DirectoryRead_ = true;
    return scanner->getVersions();
}

// Reads what the log says before its first other entry, up to the first contradiction. The versions that it tells.
static Slate::LogVersions ReadHead(const Str& path) {
    const SlateSilence silence(true);
    DirectoryScanner* const scanner = new DirectoryScanner(Slate::GetLogger());
    FileLogReader log(path, scanner);
    while (log.isReadable() && !scanner->isPastHead() && !scanner->hasError() && !Slate::IsAnythingRetold()) {
        log.readEntries();
    }
    return scanner->getVersions();
}

void Slate::ReadSideFile(const Str& log, bool showMessages) {
    unsigned short& version = DirectoryEntry::CurrentLogVersion_;
    const unsigned short versionBefore = version;
    const Str path = log + ".dir";
    const LogVersions versionsThere = ScanDirectory(path, showMessages);
    if (!DirectoryRead_) return;

    SideFile_ = path;
    const unsigned short versionThere = std::exchange(version, versionBefore);
    const LogVersions versions = ReadHead(log);
    const Str contradiction = versions.agreeWith(versionsThere) ? DescribeContradiction() : Str("the log version");
    version = versions.areTold() || !contradiction.isEmpty() ? versionBefore : versionThere;
    if (contradiction.isEmpty()) return;
    ClearDirectory();
    if (!showMessages) return;
    GetLogger().syslog(
        "Log " + log + " contradicts its side file " + path + ": " + contradiction + "; the side file is left aside",
        Syslog::ERROR);
}

static void Emit(DirectoryEntry entry, LogWriter* writer, LogEngine* engine) {
    if (writer != nullptr) {
        writer->write(&entry, nullptr);
    } else if (engine != nullptr) {
        engine->processEntry(&entry);
    }
}

void Slate::WriteElementURIEntry(ElementURI* uri, LogWriter* writer, bool) {
    Emit(DirectoryEntry(uri), writer, DirectoryEngine_);
}

void Slate::WriteNameEntry(CodedStr* name, LogWriter* writer, bool) {
    Emit(DirectoryEntry(static_cast<const CodedStr*>(name)), writer, DirectoryEngine_);
}

void Slate::WriteDataAccessEntry(DataAccess* access, LogWriter* writer, bool) {
    Emit(DirectoryEntry(access), writer, DirectoryEngine_);
}

// Without a writer only the items that are new to the log are of interest.
template <typename Item>
static void WriteItems(const FlexArray<Item*>& items, bool (*giveNextCode)(Item*),
                       void (*writeEntry)(Item*, LogWriter*, bool), LogWriter* writer, bool restarted) {
    for (int i = 0; i <= items.getMaxIndex(); ++i) {
        Item* item = items.at(static_cast<unsigned int>(i));
        const bool isNew = giveNextCode(item);
        if (writer != nullptr || isNew) writeEntry(item, writer, restarted);
    }
}

void Slate::WriteDirectory(LogWriter* writer, bool restarted) {
    WriteItems<CodedStr>(NameList_, GiveNextCode, WriteNameEntry, writer, restarted);
    WriteItems<ElementURI>(ElementURIList_, GiveNextCode, WriteElementURIEntry, writer, restarted);
    WriteItems<DataAccess>(DataAccessList_, GiveNextCode, WriteDataAccessEntry, writer, restarted);
}
