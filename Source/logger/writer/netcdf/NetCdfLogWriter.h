#pragma once

#include <memory>

#include "logger/writer/FilterLogWriter.h"
#include "logger/writer/HasFilename.h"
#include "logger/writer/PaddingLimit.h"
#include "logger/writer/SlateWatch.h"
#include "utils/netcdf/NetCdfWriter.h"

// The samples of the selected variables and settings as a NetCDF-4 file, none of them resampled: every name has a
// variable with a time axis and time values of its own, in a group named after the component. Arrays keep their shape.
// Without a file, when it cannot be created, the writer is silent.
class NetCdfLogWriter final : public FilterLogWriter, public HasFilename {
public:
    // The lists are borrowed.
    NetCdfLogWriter(const Str& filename, bool version4, int varCount, char** varList, char** unitList, int attCount,
                    char** attList);
    ~NetCdfLogWriter() override;  // finishes the file, if that has not been done

    unsigned int writeHeader() override { return 0; }
    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    unsigned int writeFooter() override;  // the end of the file; once
    // Each makes one record: 1 when it was taken.
    unsigned int writeData(const DataEntry* entry, int varIndex, const Unit* unit) override;
    unsigned int writeAtt(const DataEntry* entry, int attIndex, const Unit* unit) override;
    void resetInputs() override;
    const Str& getFilename() override { return filename_; }

    bool isValid() override { return netCdfWriter_ != nullptr && netCdfWriter_->isOk(); }

private:
    bool initializeNetCdf();
    // index: the place of a request among the variables and, behind them, the settings.
    bool define(int index);
    bool defineFirst(int index);
    void addVar(int index, const ElementURI* name, BinaryDataType type, const Unit& unit, unsigned short universalCode);
    NetCdfGroup* addGroups(const Str& varName, const Str& fullName, int index);
    NetCdf::NetCdfVar* defineVariable(NetCdfGroup& group, const Str& varName, const ElementURI& name,
                                      NetCdf::NetCdfType type);
    NetCdf::NetCdfVar* defineTime(NetCdfGroup& group, const Str& timeName);
    void give(NetCdf::NetCdfVar& var, DataValue* holder);
    bool admits(const DataEntry& entry, int index);

    const Str filename_;
    const std::unique_ptr<NetCdfWriter> netCdfWriter_;  // null: the file could not be created
    bool netCdfInitialized_ = false;
    bool finalized_ = false;
    // Per requested variable and, behind them, setting. The variables are the file's; null: none.
    const std::unique_ptr<NetCdf::NetCdfVar*[]> vars_;
    const std::unique_ptr<const ElementURI*[]> varUris_;  // whose shape the values have; null: single values
    FlexArray<ElementURI*> shapes_;                       // owned; these names, which outlive their log
    const std::unique_ptr<NetCdf::NetCdfVar*[]> timeVars_;
    FlexArray<DataValue*> holders_;  // owned; the values that the variables point to
    SlateWatch watch_{log_};         // of the last try to initialize
    PaddingLimit padding_;
};
