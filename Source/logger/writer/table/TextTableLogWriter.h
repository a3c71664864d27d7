#pragma once

#include <memory>

#include "logger/writer/table/TableLogWriter.h"
#include "utils/TextBuffer.h"

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
    void appendCell(const char* text, size_t length);
    bool needsQuotes(const char* text, size_t length) const;
    void setCell(int column, const char* text, size_t length);
    void appendTime();
    unsigned int putLine();

    const char* const separator_;  // borrowed
    const size_t separatorLength_;
    bool forcesQuotes_[256] = {};  // by character
    const bool hideUnits_;
    std::unique_ptr<Str[]> valueStrings_;  // per column the separator and the text of its cell, as in the row
    TextBuffer value_;                     // these two are kept for their room
    TextBuffer line_;
};
