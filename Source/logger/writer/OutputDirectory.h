#pragma once

#include <memory>

#include "data/CodedStr.h"
#include "data/DataAccess.h"
#include "data/ElementURI.h"
#include "utils/FlexArray.h"

class DataEntry;
class LogWriter;

// The directory of an output log that is made of chosen variables: it has codes of its own, the same for every input.
// A component's code counts components by first use; a variable's element and access both have its column as code.
class OutputDirectory {
public:
    explicit OutputDirectory(int columnCount);
    ~OutputDirectory();

    // Writes what the output's reader must know before the column's first data entry and has not been told: once the
    // version, once each component, then the element and its access, which are made after this entry. Bytes written.
    unsigned int describe(const Str& name, int column, const DataEntry& entry, const Unit* unit, LogWriter& output);
    // The entry in the terms in which its column was described, borrowing from this object; null when its value has no
    // form of the described type.
    std::unique_ptr<DataEntry> translated(const DataEntry& entry, int column) const;
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
    void make(Column& column, int index, const Str& name, const Component* component, const DataEntry& entry,
              const Unit* unit);

    const int columnCount_;
    std::unique_ptr<Column[]> columns_;
    FlexArray<Component*> components_;  // owned, by code
    bool wroteVersion_ = false;
};
