#pragma once

#include <memory>

#include "logger/entry/EventEntry.h"
#include "logger/writer/approximation/OutputDirectory.h"
#include "logger/writer/approximation/VarData.h"
#include "logger/writer/table/TableLogWriter.h"

// Thins the series of the selected variables, each within its own error bound, and hands what is left to another
// writer as data entries. Texts and arrays are passed on as they are. When the inputs change, every series ends.
class LinearApproximationLogWriter : public TableLogWriter {
public:
    // Of a variable without an error only first, forced and last points pass. sendAtStartCycle: at each cycle start
    // after which points were passed on, all columns are forced out and a cycle start follows. makeDirEntries:
    // directory entries with codes of the output's own precede a column's first data entry and a facility's first
    // message, so that the output is a log that reads alone.
    LinearApproximationLogWriter(LogWriter* outputTo, const RequestedVariables& variables, bool sendAtStartCycle,
                                 bool makeDirEntries);
    // From parallel lists; their texts are borrowed and outlive the writer.
    LinearApproximationLogWriter(LogWriter* outputTo, int varCount, char** varList, char** unitList,
                                 const float* approxErrors, bool sendAtStartCycle, bool makeDirEntries)
        : LinearApproximationLogWriter(outputTo, RequestedVariables(varCount, varList, unitList, approxErrors),
                                       sendAtStartCycle, makeDirEntries) {}

    unsigned int writeHeader() override;
    void endCycle() override;
    void config(Logger& logger) override;
    unsigned int writeFooter() override;
    void resetInputs() override;
    unsigned int writeRow() override;
    unsigned int writeSyslog(const SyslogEntry* entry) override;
    unsigned int writeToColumn(const DataEntry* entry, int column) override;

    void resetDirectoryEntries() { directory_.reset(); }  // they are written again
    unsigned int forceWrite(DataEntry* entry);            // passes an entry on at once, whatever its element
    unsigned int forceWriteRow();                         // passes on what every column still holds

private:
    unsigned int startSeries(const DataEntry& entry, int column);
    unsigned int passPoint(int column);
    unsigned int passOn(const DataEntry& entry, int column);
    unsigned int sendOutput(const DataEntry* entry, int column);
    unsigned int sendDescribed(const DataEntry& entry, int column, const Str& name, const Unit* unit);

    const bool sendAtStartCycle_;
    const bool makeDirEntries_;
    std::unique_ptr<std::unique_ptr<VarData>[]> varData_;  // per column, null until its first sample
    OutputDirectory directory_;
    bool recentOutput_ = false;  // something was passed on since the last cycle start
    EventEntry cycleStartEntry_;
};
