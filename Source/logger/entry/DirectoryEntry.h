#pragma once

#include "logger/entry/LogEntry.h"
#include "logger/entry/PoolDrain.h"
#include "utils/RecyclingPool.h"

class CodedStr;
class DataAccess;
class ElementURI;

// Describes the log to its reader: the format version, a coded name, an element name or a data access. It has no time.
class DirectoryEntry final : public LogEntry {
public:
    enum DirectoryType : int { ACCESSOR = 'a', ELEMENT = 'e', NAME = 'n', VERSION = 'v' };
    static constexpr unsigned short HEADER = 21;  // the one header word of directory entries

    // An entry of each type. Version 0 stands for the one in force; the other items belong to the log and are not null.
    explicit DirectoryEntry(short version, Log& log = Log::Current());
    explicit DirectoryEntry(DataAccess* dataAccess, Log& log = Log::Current());
    explicit DirectoryEntry(const CodedStr* name, Log& log = Log::Current());
    explicit DirectoryEntry(ElementURI* element, Log& log = Log::Current());

    unsigned int write(Timestamp& timeBase, OutStream& out) const override;
    void appendTo(TextBuffer& text, const Unit* unit) const override;

    DirectoryType getDirectoryType() const { return directoryType_; }
    // Of a VERSION entry; it says nothing for another.
    short getVersion() const { return version_; }
    bool wasRead() const { return wasRead_; }  // came from a log
    // The version in force for the current log, which a VERSION entry that is read changes.
    static unsigned short GetCurrentLogVersion() { return Log::Current().version().inForce(); }
    // Logs of older versions cannot be read.
    static unsigned short GetMinimumLogVersion() { return LogVersion::OLDEST; }
    // With a blank behind it, as the line of text has it; "(undefined)", without one, for no type.
    static const char* DirectoryTypeToString(DirectoryType type);

    // As LogEntry::Read, past the header word. Registers what it reads in the log, also where the header is wrong.
    static DirectoryEntry* Read(Timestamp& timeBase, InStream& in, unsigned short header, const Logger& logger,
                                bool& error, Log& log = Log::Current());

    static void* operator new(size_t size) { return Pool_.allocate(size); }
    static void operator delete(void* block) { Pool_.release(block); }

private:
    DirectoryEntry(DirectoryType type, Log& log);  // the item follows
    static DirectoryEntry* ReadBody(signed char type, InStream& in, const Logger& logger, Log& log);
    static DirectoryEntry* ReadVersionEntry(InStream& in, const Logger& logger, Log& log);

    DirectoryType directoryType_;
    union {  // by directoryType_
        DataAccess* dataAccess_;
        ElementURI* element_;
        const CodedStr* name_;
        short version_;
    };
    bool wasRead_ = false;

    static RecyclingPool Pool_;
    static const PoolDrain PoolDrain_;
};
