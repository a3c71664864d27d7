#pragma once

#include <memory>

#include "logger/writer/table/TableLogWriter.h"
#include "utils/TextBuffer.h"

class Unit;

// The rows as delimited text: a header line with "Timestamp", "EpochSeconds" and the names as given, then a line a row.
// A column shows its last value again until a new one comes, "nan" before the first. A cell or name that holds the
// separator, a quote or a line break stands in double quotes, inner ones doubled.
class TextTableLogWriter : public TableLogWriter {
public:
    // The separator is borrowed; hideUnits: values without their unit.
    TextTableLogWriter(const char* separator, const RequestedVariables& variables, bool hideUnits, bool interpolate);
    // From parallel lists; their texts are borrowed and outlive the writer.
    TextTableLogWriter(const char* separator, int varCount, char** varList, char** unitList, bool hideUnits,
                       bool interpolate)
        : TextTableLogWriter(separator, RequestedVariables(varCount, varList, unitList), hideUnits, interpolate) {}

    unsigned int writeHeader() override;
    unsigned int writeFooter() override;
    unsigned int writeRow() override;
    unsigned int writeToColumn(const DataEntry* entry, int column) override;

private:
    // What stands in a column, as in the row: the separator and the text of the value.
    struct Cell {
        static constexpr size_t ROOM = 32;  // bytes that hardly a cell exceeds

        void keep(const TextBuffer& text);
        char* putTo(char* at) const;  // the place behind it; with it up to ROOM bytes are overwritten

        char text_[ROOM] = {};
        size_t length_ = 0;
        Str longText_;  // in place of the other, where it is longer
    };

    void setCell(int column, const DataEntry* entry);  // null: "nan"
    void appendTime(TextBuffer& row) const;
    void quoteWhereNeeded(TextBuffer& text, size_t begin) const;
    bool isPlainNumber(const DataEntry& entry, const Unit& unit) const;
    bool needsQuotes(const char* text, size_t length) const;

    const char* const separator_;  // borrowed
    const size_t separatorLength_;
    bool forcesQuotes_[256] = {};  // by character
    bool quotesNumbers_;           // perhaps, and not only for their units
    const bool hideUnits_;
    std::unique_ptr<Cell[]> cells_;  // per column
    size_t cellsLength_ = 0;         // of all of them, in bytes
};
