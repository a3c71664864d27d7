#include "data/Slate.h"
#include "logger/engine/LogEngine.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/reader/BinaryLogReader.h"
#include "logger/reader/FileLogReader.h"
#include "logger/writer/LogWriter.h"

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

private:
    void handle(LogEntry& entry) override {
        if (entry.getType() != LogEntry::DIRECTORY_LOG_ENTRY) return;
        const DirectoryEntry& record = static_cast<const DirectoryEntry&>(entry);
        if (record.getDirectoryType() != DirectoryEntry::VERSION) foundRecords_ = true;
    }

    bool foundRecords_ = false;  // a name, an element or an access; a version alone is no directory
};

void Slate::ReadDirectory(const Str& path) {
    ReadDirectory(path, true);
}

void Slate::ReadDirectory(const Str& path, bool showMessages) {
    static const Logger silent("unserialize", nullptr);
    TakeBackCodesNotRead();
    const Logger* const logger = Logger_;
    if (!showMessages) SetLogger(&silent);
    DirectoryScanner* scanner = new DirectoryScanner(GetLogger());
    FileLogReader log(path, scanner);
    log.readAll();
    if (scanner->foundRecords()) DirectoryRead_ = true;
    SetLogger(logger);
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
