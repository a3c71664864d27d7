#pragma once

#include <memory>

#include "logger/writer/HasFilename.h"
#include "logger/writer/SlateWatch.h"
#include "logger/writer/netcdf/NetCdfSettings.h"
#include "logger/writer/table/TableLogWriter.h"
#include "utils/netcdf/NetCdfWriter.h"

// The rows of a table as one classic NetCDF file: a variable per column over one time axis, the vehicle's settings as
// global attributes. Texts and arrays have no place in it.
// Without a file, when it cannot be created, the writer is silent.
class NetCdfTableLogWriter final : public TableLogWriter, public HasFilename {
public:
    // Names that are not known yet, and what stands for those that the log never gives, are settled as the log is read.
    NetCdfTableLogWriter(const Str& filename, bool version4, const RequestedVariables& variables, bool interpolate,
                         const RequestedVariables& settings);
    // From parallel lists; their texts are borrowed and outlive the writer.
    NetCdfTableLogWriter(const Str& filename, bool version4, int varCount, char** varList, char** unitList,
                         bool interpolate, int attCount, char** attList)
        : NetCdfTableLogWriter(filename, version4, RequestedVariables(varCount, varList, unitList), interpolate,
                               RequestedVariables(attCount, attList)) {}
    ~NetCdfTableLogWriter() override;  // finishes the file, if that has not been done

    unsigned int writeHeader() override;  // defines what it can; 0
    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    unsigned int writeFooter() override;  // the last row, and the end of the file; once
    void clearRow() override {}
    unsigned int writeRow() override;  // 1 when the row was taken
    unsigned int writeToColumn(const DataEntry* entry, int column) override;
    void resetInputs() override;
    const Str& getFilename() override { return filename_; }

    bool isValid() override { return netCdfWriter_ != nullptr && netCdfWriter_->isOk(); }
    void setBlockRecords(unsigned int records);  // as the NetCdfWriter's; before the first entry

private:
    bool initializeNetCdf();
    bool defineColumn(int column);
    void addVar(int column, const ElementURI* name, BinaryDataType type, const Unit& unit,
                unsigned short universalCode);

    const Str filename_;
    const std::unique_ptr<NetCdfWriter> netCdfWriter_;  // null: the file could not be created
    bool netCdfInitialized_ = false;
    NetCdfSettings settings_;
    const std::unique_ptr<NetCdf::NetCdfVar*[]> vars_;  // per column, the file's; null: none; columns may share one
    FlexArray<DataValue*> holders_;                     // owned; the values that the variables point to
    SlateWatch watch_{log_};                            // of the last try to initialize
};
