#include "logger/entry/DirectoryEntry.h"

#include "data/CodedStr.h"
#include "data/DataAccess.h"
#include "data/ElementURI.h"
#include "data/Log.h"
#include "logger/entry/EntryStream.h"
#include "utils/TextBuffer.h"

RecyclingPool DirectoryEntry::Pool_("DirectoryEntry", sizeof(DirectoryEntry));
const PoolDrain DirectoryEntry::PoolDrain_(Pool_);

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
DirectoryEntry::DirectoryEntry(DirectoryType type, Log& log)
    : LogEntry(DIRECTORY_LOG_ENTRY, Timestamp::EPOCH_START_TIME, log), directoryType_(type), dataAccess_(nullptr) {
    setTimestamp(Timestamp::NOT_SET_TIME);
}

DirectoryEntry::DirectoryEntry(short version, Log& log) : DirectoryEntry(VERSION, log) {
    version_ = version == 0 ? static_cast<short>(log.version().inForce()) : version;
}

DirectoryEntry::DirectoryEntry(DataAccess* dataAccess, Log& log) : DirectoryEntry(ACCESSOR, log) {
    dataAccess_ = dataAccess;
}

DirectoryEntry::DirectoryEntry(const CodedStr* name, Log& log) : DirectoryEntry(NAME, log) {
    name_ = name;
}

DirectoryEntry::DirectoryEntry(ElementURI* element, Log& log) : DirectoryEntry(ELEMENT, log) {
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
        return EntryStream::Fail(logger, in, "Missing space reading directory version");
    }
    if (in.readShortHex(version).bytesRead() != 4) {
        return EntryStream::Fail(logger, in, "Encountered eof while reading directory version");
    }
    return (in.readChar(c).bytesRead() == 1 && c == '\n') ||
           EntryStream::Fail(logger, in, "Missing newline reading directory version");
}

static void AcceptVersion(short version, InStream& in, const Logger& logger, LogVersion& inForce) {
    TextBuffer text;
    text.append("Got version ").appendInt(version).append(" from ").append(in.getName());
    logger.syslog(text.toStr(), Syslog::DEBUG);
    if (inForce.accept(version)) return;
    text.clear();
    text.append("Can only unserialize verisions ").appendInt(LogVersion::OLDEST);
    text.append(" through ").appendInt(inForce.inForce());
    logger.syslog(text.toStr(), Syslog::CRITICAL);
}

DirectoryEntry* DirectoryEntry::ReadVersionEntry(InStream& in, const Logger& logger, Log& log) {
    short version = 0;
    if (!ReadVersion(in, logger, version)) return nullptr;
    AcceptVersion(version, in, logger, log.version());
    DirectoryEntry* entry = new DirectoryEntry(VERSION, log);
    entry->version_ = version;
    return entry;
}

template <typename Item>
static DirectoryEntry* EntryOn(Item* item, Log& log) {
    return item == nullptr ? nullptr : new DirectoryEntry(item, log);
}

static DirectoryEntry* ReadAccess(InStream& in, const Logger& logger, Log& log) {
    DataAccess* const read = DataAccess::Read(in);
    if (read != nullptr) return EntryOn(log.registerDataAccess(read), log);
    EntryStream::Fail(logger, in, "Encountered error while reading dataAccess");
    return nullptr;
}

static DirectoryEntry* ReadElement(InStream& in, const Logger& logger, Log& log) {
    ElementURI* const read = ElementURI::Read(in, log.getLogger());
    if (read != nullptr) return EntryOn(log.registerElementURI(read), log);
    EntryStream::Fail(logger, in, "Encountered error while reading element");
    return nullptr;
}

static DirectoryEntry* ReadName(InStream& in, const Logger& logger, Log& log) {
    CodedStr* const read = CodedStr::Read(in);
    if (read != nullptr) return EntryOn<const CodedStr>(log.registerCodedName(read), log);
    EntryStream::Fail(logger, in, "Encountered error while reading name");
    return nullptr;
}

DirectoryEntry* DirectoryEntry::ReadBody(signed char type, InStream& in, const Logger& logger, Log& log) {
    switch (type) {
        case ACCESSOR:
            return ReadAccess(in, logger, log);
        case ELEMENT:
            return ReadElement(in, logger, log);
        case NAME:
            return ReadName(in, logger, log);
        case VERSION:
            return ReadVersionEntry(in, logger, log);
        default:
            log.countUnknownRecord();
            return nullptr;
    }
}

DirectoryEntry* DirectoryEntry::Read(Timestamp&, InStream& in, unsigned short header, const Logger& logger, bool& error,
                                     Log& log) {
    if (header != HEADER) {
        TextBuffer text;
        text.append("Invalid directory entry starting with code 0x").appendHex(header);
        text.append(" at byte 0x").appendHex(in.getTotalBytesRead());
        logger.syslog(text.toStr(), Syslog::ERROR);
        error = true;
    }
    signed char type = 0;
    if (in.readChar(type).bytesRead() != 1) {
        EntryStream::Fail(logger, in, "Failed to read directory type.");
        return nullptr;
    }
    DirectoryEntry* entry = ReadBody(type, in, logger, log);
    if (entry != nullptr) entry->wasRead_ = true;
    return entry;
}

void DirectoryEntry::appendTo(TextBuffer& text, const Unit*) const {
    text.append(DirectoryTypeToString(directoryType_));
    switch (directoryType_) {
        case ACCESSOR:
            text.append(dataAccess_->asString(true));
            break;
        case ELEMENT:
            text.appendHex(element_->getCode()).append(' ').append(*element_);
            break;
        case NAME:
            text.appendHex(name_->getCode()).append(' ').append(*name_);
            break;
        case VERSION:
            text.appendInt(version_);
            break;
    }
}
