#pragma once

#include <memory>

#include "logger/engine/LogWriter.h"
#include "logger/writer/VariableSelection.h"
#include "logger/writer/table/PageMemory.h"
#include "utils/Timestamp.h"

class DataEntry;
class EventEntry;
class HasFilename;
class PendingRows;
class SyslogEntry;

// Turns the entries into rows of a table: one column per selected variable, one row per time. Without interpolation a
// row is one control cycle, emitted when the next one starts and stamped with the start of its own. With interpolation
// there is a row per distinct entry time; cells without a sample are interpolated in time, and a row is emitted once it
// can no longer change. What a row looks like is left to derived writers.
// Errors: where rows that wait cannot be read back from their temporary file the table ends with those that have left,
// and an ERROR tells.
class TableLogWriter : public LogWriter {
public:
    // outputTo, which may be null, receives what the base operations forward; it is shared.
    TableLogWriter(LogWriter* outputTo, const RequestedVariables& variables, bool interpolate);
    // From parallel lists; their texts are borrowed and outlive the writer. unitList may be null, and so may each unit.
    TableLogWriter(LogWriter* outputTo, int varCount, char** varList, char** unitList, bool interpolate)
        : TableLogWriter(outputTo, RequestedVariables(varCount, varList, unitList), interpolate) {}
    TableLogWriter(int varCount, char** varList, char** unitList, bool interpolate)
        : TableLogWriter(nullptr, varCount, varList, unitList, interpolate) {}
    ~TableLogWriter() override;

    unsigned int writeHeader() override;
    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    unsigned int writeFooter() override;
    void resetInputs() override;
    size_t heldBytes() override;
    void freeMemory() override;  // writes the pending rows, the table's last
    bool isWhole() override { return !endedEarly_ && (outputTo_ == nullptr || outputTo_->isWhole()); }

    // For rows that wait, when interpolating; before the first entry.
    void setRoom(const PageMemory::Room& room);

    // Each returns the number of bytes written.
    virtual unsigned int writeAllInterpolated();                 // emits every pending row
    virtual void clearRow() {}                                   // after each emitted row without interpolation
    virtual unsigned int writeRow();                             // base: a cycle start at lastTime_ to the output
    virtual unsigned int writeSyslog(const SyslogEntry* entry);  // base: forwards
    // Puts a value into a cell of the current row; null: an empty cell. Base: forwards an entry.
    virtual unsigned int writeToColumn(const DataEntry* entry, int column);

protected:
    // Looks open names up, when the directory has changed since the last try; true when no name is open any more.
    bool initializeTableLogWriter() { return columns_.resolve(); }

    LogWriter* const outputTo_;  // shared; may be null
    VariableSelection columns_;
    const bool interpolate_;
    Timestamp lastTime_;  // of the current row

private:
    unsigned int writeSample(const DataEntry& entry);
    unsigned int writeCells(const DataEntry& entry, unsigned short code);
    unsigned int writeCell(const DataEntry& entry, int column);
    unsigned int writeEvent(const EventEntry& entry);
    unsigned int writeMessage(const SyslogEntry& entry);
    unsigned int writeReadyRows();
    unsigned int writeFrontRow();
    void endWhereRowsAreLost();
    void endEarly(const char* reason);
    void waitIn(const PageMemory::Room& room);
    HasFilename* outputFile();
    Str outputName();

    std::unique_ptr<PendingRows> pendingRows_;  // with interpolation only
    bool endedEarly_ = false;
};
