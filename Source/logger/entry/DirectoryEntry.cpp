#include "logger/entry/DirectoryEntry.h"

#include "data/CodedStr.h"
#include "data/DataAccess.h"
#include "data/ElementURI.h"
#include "data/Slate.h"
#include "logger/entry/EntryStream.h"
#include "utils/TextBuffer.h"

RecyclingPool DirectoryEntry::Pool_("DirectoryEntry", sizeof(DirectoryEntry));
const PoolDrain DirectoryEntry::PoolDrain_(Pool_);
unsigned short DirectoryEntry::MinimumLogVersion_ = 3;
unsigned short DirectoryEntry::CurrentLogVersion_ = 8;
FlexArray<ElementURI*> DirectoryEntry::ElementStore_;
unsigned long DirectoryEntry::UnknownKinds_ = 0;

struct DirectoryTypeName {
    DirectoryEntry::DirectoryType type_;
    const char* name_;
};
static const DirectoryTypeName TYPE_NAMES[] = {
    {DirectoryEntry::ACCESSOR, "ACCESSOR "},
    {DirectoryEntry::ELEMENT, "ELEMENT "},
    {DirectoryEntry::NAME, "NAME "},
    {DirectoryEntry::VERSION, "VERSION "},
};

// A directory entry has no time: the unset one marks that, and the clock is not asked.
DirectoryEntry::DirectoryEntry(DirectoryType type)
    : LogEntry(DIRECTORY_LOG_ENTRY, Timestamp::EPOCH_START_TIME), directoryType_(type), dataAccess_(nullptr) {
    setTimestamp(Timestamp::NOT_SET_TIME);
}

DirectoryEntry::DirectoryEntry(short version) : DirectoryEntry(VERSION) {
    version_ = version == 0 ? static_cast<short>(CurrentLogVersion_) : version;
}

DirectoryEntry::DirectoryEntry(DataAccess* dataAccess) : DirectoryEntry(ACCESSOR) {
    dataAccess_ = dataAccess;
}

DirectoryEntry::DirectoryEntry(const CodedStr* name) : DirectoryEntry(NAME) {
    name_ = name;
}

DirectoryEntry::DirectoryEntry(ElementURI* element) : DirectoryEntry(ELEMENT) {
    element_ = element;
}

const char* DirectoryEntry::DirectoryTypeToString(DirectoryType type) {
    for (const DirectoryTypeName& known : TYPE_NAMES) {
        if (known.type_ == type) return known.name_;
    }
    return "(undefined)";
}

// The version is text, so that a log begins with a line that people can read.
static size_t WriteVersion(OutStream& out, short version) {
    size_t n = out.writeChar(' ').bytesWritten();
    n += out.writeShortHex(version).bytesWritten();
    return n + out.writeChar('\n').bytesWritten();
}

unsigned int DirectoryEntry::write(Timestamp&, OutStream& out) const {
    size_t n = out.writeUShortCompact(HEADER).bytesWritten();
    n += out.writeChar(static_cast<signed char>(directoryType_)).bytesWritten();
    switch (directoryType_) {
        case ACCESSOR:
            n += dataAccess_->write(out);
            break;
        case ELEMENT:
            n += element_->write(out);
            break;
        case NAME:
            n += name_->write(out);
            break;
        case VERSION:
            n += WriteVersion(out, version_);
            break;
    }
    return static_cast<unsigned int>(n);
}

static bool ReadVersion(InStream& in, const Logger& logger, short& version) {
    signed char c = 0;
    if (in.readChar(c).bytesRead() != 1 || c != ' ') {
        return EntryStream::Fail(logger, "Missing space reading directory version");
    }
    if (in.readShortHex(version).bytesRead() != 4) {
        return EntryStream::Fail(logger, "Encountered eof while reading directory version");
    }
    return (in.readChar(c).bytesRead() == 1 && c == '\n') ||
           EntryStream::Fail(logger, "Missing newline reading directory version");
}

// An accepted version rules how the entries that follow are decoded, and is the newest that later logs may have.
static void AcceptVersion(short version, InStream& in, const Logger& logger) {
    TextBuffer text;
    text.append("Got version ").appendInt(version).append(" from ").append(in.getName());
    logger.syslog(text.toStr(), Syslog::DEBUG);
    unsigned short& current = DirectoryEntry::CurrentLogVersion_;
    if (DirectoryEntry::MinimumLogVersion_ <= version && version <= current) {
        current = static_cast<unsigned short>(version);
        return;
    }
    text.clear();
    text.append("Can only unserialize verisions ").appendInt(DirectoryEntry::MinimumLogVersion_);
    text.append(" through ").appendInt(current);
    logger.syslog(text.toStr(), Syslog::CRITICAL);
}

DirectoryEntry* DirectoryEntry::ReadVersionEntry(InStream& in, const Logger& logger) {
    short version = 0;
    if (!ReadVersion(in, logger, version)) return nullptr;
    AcceptVersion(version, in, logger);
    DirectoryEntry* entry = new DirectoryEntry(VERSION);
    entry->version_ = version;
    return entry;
}

// A record of one kind: decoded, or else complained about, then registered; null unless the Slate has it now.
template <typename Item>
static Item* ReadItem(InStream& in, const Logger& logger, const char* complaint, Item* (*registerItem)(Item*)) {
    Item* item = Item::Read(in);
    if (item == nullptr) {
        EntryStream::Fail(logger, complaint);
        return nullptr;
    }
    return registerItem(item);
}

static ElementURI* RegisterElement(ElementURI* read) {
    ElementURI* registered = Slate::RegisterElementURI(read);
    if (registered == read) DirectoryEntry::ElementStore_.push(read);
    return registered;
}

template <typename Item>
static DirectoryEntry* EntryOn(Item* item) {
    return item == nullptr ? nullptr : new DirectoryEntry(item);
}

DirectoryEntry* DirectoryEntry::ReadBody(signed char type, InStream& in, const Logger& logger) {
    switch (type) {
        case ACCESSOR:
            return EntryOn(ReadItem<DataAccess>(in, logger, "Encountered error while reading dataAccess",
                                                Slate::RegisterDataAccess));
        case ELEMENT:
            return EntryOn(
                ReadItem<ElementURI>(in, logger, "Encountered error while reading element", RegisterElement));
        case NAME:
            return EntryOn(static_cast<const CodedStr*>(
                ReadItem<CodedStr>(in, logger, "Encountered error while reading name", Slate::RegisterCodedName)));
        case VERSION:
            return ReadVersionEntry(in, logger);
        default:
            ++UnknownKinds_;
            return nullptr;
    }
}

DirectoryEntry* DirectoryEntry::Read(Timestamp&, InStream& in, unsigned short header, const Logger& logger,
                                     bool& error) {
    if (header != HEADER) {
        TextBuffer text;
        text.append("Invalid directory entry starting with code 0x").appendHex(header);
        text.append(" at byte 0x").appendHex(in.getTotalBytesRead());
        logger.syslog(text.toStr(), Syslog::ERROR);
        error = true;
    }
    signed char type = 0;
    if (in.readChar(type).bytesRead() != 1) {
        EntryStream::Fail(logger, "Failed to read directory type.");
        return nullptr;
    }
    DirectoryEntry* entry = ReadBody(type, in, logger);
    if (entry != nullptr) entry->wasRead_ = true;
    return entry;
}

static Str CodedText(const char* kind, unsigned short code, const Str& name) {
    TextBuffer text;
    return text.append(kind).appendHex(code).append(' ').append(name).toStr();
}

Str DirectoryEntry::toString(const Unit*) const {
    const char* kind = DirectoryTypeToString(directoryType_);
    switch (directoryType_) {
        case ACCESSOR:
            return kind + dataAccess_->asString(true);
        case ELEMENT:
            return CodedText(kind, element_->getCode(), *element_);
        case NAME:
            return CodedText(kind, name_->getCode(), *name_);
        case VERSION:
            return kind + Str(version_, 10, 0);
    }
    return kind;
}
