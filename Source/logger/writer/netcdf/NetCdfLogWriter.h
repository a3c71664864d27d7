#pragma once

#include <memory>

#include "logger/writer/ArrayLogWriter.h"
#include "logger/writer/HasFilename.h"
#include "utils/netcdf/NetCdfWriter.h"

// The samples of the selected variables and settings as a NetCDF-4 file, none of them resampled: every name has a
// variable with a time axis and time values of its own, in a group named after the component. Arrays keep their shape.
// Without a file, when it cannot be created, the writer is silent.
class NetCdfLogWriter final : public ArrayLogWriter, public HasFilename {
public:
    // The lists are borrowed.
    NetCdfLogWriter(const Str& filename, bool version4, int varCount, char** varList, char** unitList, int attCount,
                    char** attList);
    ~NetCdfLogWriter() override;  // finishes the file, if that has not been done

    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    unsigned int writeFooter() override;  // the end of the file; once
    const Str& getFilename() override { return filename_; }

    bool isValid() override { return netCdfWriter_ != nullptr && netCdfWriter_->isOk(); }
    void setBlockRecords(unsigned int records);  // as the NetCdfWriter's; before the first entry

protected:
    bool place(int request) override;
    unsigned int addSample(const DataEntry& entry, int request) override;  // one record; 1 when it was taken

private:
    void initializeNetCdf();
    void addVar(int request, const ElementURI* name, BinaryDataType type, const Unit& unit,
                unsigned short universalCode);
    NetCdfGroup* addGroups(const Str& varName, const Str& fullName, int request);
    NetCdf::NetCdfVar* defineVariable(NetCdfGroup& group, const Str& varName, const ElementURI& name,
                                      NetCdf::NetCdfType type);
    NetCdf::NetCdfVar* defineTime(NetCdfGroup& group, const Str& timeName);
    void give(NetCdf::NetCdfVar& var, DataValue* holder);
    bool admits(const DataEntry& entry, int request);

    const Str filename_;
    const std::unique_ptr<NetCdfWriter> netCdfWriter_;  // null: the file could not be created
    bool netCdfInitialized_ = false;
    bool finalized_ = false;
    // Per request. The variables are the file's; null: none.
    const std::unique_ptr<NetCdf::NetCdfVar*[]> vars_;
    const std::unique_ptr<const ElementURI*[]> varUris_;  // whose shape the values have; null: single values
    FlexArray<ElementURI*> shapes_;                       // owned; these names, which outlive their log
    const std::unique_ptr<NetCdf::NetCdfVar*[]> timeVars_;
    FlexArray<DataValue*> holders_;  // owned; the values that the variables point to
};
