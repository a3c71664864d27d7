#pragma once

#include <memory>

#include "data/CodedStr.h"
#include "data/DataAccess.h"
#include "data/ElementURI.h"
#include "utils/FlexArray.h"

class DataEntry;
class Log;
class LogWriter;
class SyslogEntry;

// The directory of an output log that is made of chosen variables: it has codes of its own, the same for every input.
// A component's code counts components by first use, facilities of messages among them; a variable's element and access
// both have its column as code. What was not chosen and still goes into the log has columns behind the others.
class OutputDirectory {
public:
    OutputDirectory(int columnCount, Log& log);  // the log that the entries are from; borrowed
    ~OutputDirectory();

    // The column of a variable that was not chosen; made when there is none. describe follows.
    int columnBehind(const Str& name);
    // Writes what the output's reader must know before the column's first data entry and has not been told: once the
    // version, once each component, then the element and its access, which are made after this entry. Bytes written.
    unsigned int describe(const Str& name, int column, const DataEntry& entry, const Unit* unit, LogWriter& output);
    // The entry in the terms in which its column was described, borrowing from this object; null when its value has no
    // form of the described type.
    std::unique_ptr<DataEntry> translated(const DataEntry& entry, int column) const;
    // The same for a message, whose facility the reader must know.
    unsigned int describe(const SyslogEntry& entry, LogWriter& output);
    std::unique_ptr<SyslogEntry> translated(const SyslogEntry& entry);
    void reset();  // everything is to be written again

private:
    struct Column {
        std::unique_ptr<ElementURI> element_;
        std::unique_ptr<DataAccess> access_;
        bool written_ = false;
    };
    struct Component {
        explicit Component(const Str& name, unsigned short code) : name_(name, code) {}
        CodedStr name_;
        bool written_ = false;
    };
    Component* componentOf(const Str& name);
    Component* componentCalled(const Str& text);
    unsigned int writeVersion(LogWriter& output);
    unsigned int writeName(Component& component, LogWriter& output);
    void make(Column& column, int index, const Str& name, const Component* component, const DataEntry& entry,
              const Unit* unit);

    Log& log_;
    const int chosenCount_;
    FlexArray<Column*> columns_;        // owned
    FlexArray<Component*> components_;  // owned, by code
    bool wroteVersion_ = false;
};
