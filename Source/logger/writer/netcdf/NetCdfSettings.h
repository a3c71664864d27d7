#pragma once

#include <memory>

#include "data/DataValue.h"
#include "logger/writer/VariableSelection.h"
#include "utils/netcdf/NetCdfWriter.h"

class DataEntry;

// The settings of a vehicle as global attributes of a classic file: each has its latest value, and, if it is a number,
// the name of its unit in an attribute beside it.
// A longer text would make the library move everything behind it, and outside define mode it takes none: the values
// are kept here and put at the end.
class NetCdfSettings {
public:
    NetCdfSettings(const RequestedVariables& settings, const Log& log);  // the log is borrowed

    // Makes the attributes that are still missing, with placeholders. False while the log may still name a setting.
    bool define(NetCdfWriter& writer);
    size_t headerRoom() const;                  // bytes that values will probably add
    void note(const DataEntry& entry);          // the latest value, if it is one of a setting
    void put(NetCdfWriter& writer);             // the values, after the last record
    void resetInputs() { selection_.reset(); }  // the codes of the next input may be others

private:
    struct Setting {
        NetCdf::NetCdfAtt* att_ = nullptr;    // the file's, null while not defined
        NetCdf::NetCdfAtt* units_ = nullptr;  // null for a text
        std::unique_ptr<DataValue> value_;    // the latest
        const Unit* unit_ = nullptr;          // in which it is shown
    };
    void defineSetting(NetCdfWriter& writer, int index);
    void putSetting(NetCdfWriter& writer, const Setting& setting, const char* name);

    const Log& log_;  // borrowed
    VariableSelection selection_;
    std::unique_ptr<Setting[]> settings_;  // one per name
};
