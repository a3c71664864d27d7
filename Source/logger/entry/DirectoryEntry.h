#pragma once

#include "logger/entry/LogEntry.h"
#include "logger/entry/PoolDrain.h"
#include "utils/FlexArray.h"
#include "utils/RecyclingPool.h"

class CodedStr;
class DataAccess;
class ElementURI;

// Describes the log to its reader: the format version, a coded name, an element name or a data access. It has no time.
class DirectoryEntry final : public LogEntry {
public:
    enum DirectoryType : int { ACCESSOR = 'a', ELEMENT = 'e', NAME = 'n', VERSION = 'v' };
    static constexpr unsigned short HEADER = 21;  // the one header word of directory entries

    static unsigned short MinimumLogVersion_;     // the oldest readable log version
    static unsigned short CurrentLogVersion_;     // the newest; replaced by the version of the log being read
    static FlexArray<ElementURI*> ElementStore_;  // names that the Slate adopted from logs, and owns
    static unsigned long UnknownKinds_;           // records that were of none of the kinds

    explicit DirectoryEntry(short version);           // 0 stands for the version in force
    explicit DirectoryEntry(DataAccess* dataAccess);  // the items belong to the Slate
    explicit DirectoryEntry(const CodedStr* name);
    explicit DirectoryEntry(ElementURI* element);

    unsigned int write(Timestamp& timeBase, OutStream& out) const override;
    Str toString(const Unit* unit) const override;

    DirectoryType getDirectoryType() const { return directoryType_; }
    short getVersion() const { return version_; }
    bool wasRead() const { return wasRead_; }  // came from a log
    static unsigned short GetCurrentLogVersion() { return CurrentLogVersion_; }
    static unsigned short GetMinimumLogVersion() { return MinimumLogVersion_; }
    static const char* DirectoryTypeToString(DirectoryType type);

    // Registers what it reads in the Slate, also where the header is wrong.
    static DirectoryEntry* Read(Timestamp& timeBase, InStream& in, unsigned short header, const Logger& logger,
                                bool& error);

    static void* operator new(size_t size) { return Pool_.allocate(size); }
    static void operator delete(void* block) { Pool_.release(block); }

private:
    explicit DirectoryEntry(DirectoryType type);  // the item follows
    static DirectoryEntry* ReadBody(signed char type, InStream& in, const Logger& logger);
    static DirectoryEntry* ReadVersionEntry(InStream& in, const Logger& logger);

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
