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
    TextTableLogWriter(const char* separator, int varCount, char** varList, char** unitList, bool hideUnits,
                       bool interpolate);

    unsigned int writeHeader() override;
    unsigned int writeFooter() override;
    unsigned int writeRow() override;
    unsigned int writeToColumn(const DataEntry* entry, int column) override;

private:
    // The separator and the text of a value, as in the row. What is longer than most stands apart.
    struct Cell {
        static constexpr size_t ROOM = 44;
        static constexpr size_t COMMON_LENGTH = 24;  // most texts are no longer: so much is copied at once

        char text_[ROOM] = {};
        unsigned int length_ = 0;          // of either text
        const Unit* plainUnit_ = nullptr;  // the last unit of a number that needed no quotes
        std::unique_ptr<Str> long_;        // the text, where it is not in the cell
    };

    bool putNumber(Cell& cell, const DataEntry& entry, const Unit& unit);
    void setCell(Cell& cell, const char* text, size_t length);
    void setLength(Cell& cell, size_t length);
    void appendCell(TextBuffer& line, const char* text, size_t length) const;
    void appendTimes(TextBuffer& line) const;
    void appendCells(TextBuffer& line) const;
    bool needsQuotes(const char* text, size_t length) const;

    const char* const separator_;  // borrowed
    const size_t separatorLength_;
    bool forcesQuotes_[256] = {};  // by character
    const bool hideUnits_;
    bool numbersArePlain_;           // their digits need no quotes, and they fit a cell
    std::unique_ptr<Cell[]> cells_;  // per column
    size_t cellsLength_ = 0;         // of all texts
};
