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
    // version, once each component, then the element and its access. Adds the bytes written to `bytes`; the result, in
    // whose name the column's entries are to be written, is owned by this object.
    DataAccess* describe(const Str& name, int column, const DataEntry& entry, const Unit* unit, LogWriter& output,
                         unsigned int& bytes);
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
