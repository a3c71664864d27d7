#include "logger/writer/netcdf/NetCdfSettings.h"

#include <cstdio>
#include <limits>

#include "data/DataAccess.h"
#include "logger/entry/DataEntry.h"
#include "logger/writer/netcdf/NetCdfConventions.h"
#include "logger/writer/netcdf/NetCdfNames.h"

NetCdfSettings::NetCdfSettings(const RequestedVariables& settings, const Log& log)
    : log_(log), selection_(settings, log), settings_(new Setting[settings.count()]) {}

// Of a number that has not come yet.
static NetCdfAttValue Placeholder(NetCdf::NetCdfType type) {
    switch (type) {
        case NetCdf::NC_CHAR_TYPE:
            return "";
        case NetCdf::NC_SHORT_TYPE:
            return short(0);
        case NetCdf::NC_INT_TYPE:
            return 0;
        case NetCdf::NC_FLOAT_TYPE:
            return std::numeric_limits<float>::quiet_NaN();
        default:
            return std::numeric_limits<double>::quiet_NaN();
    }
}

bool NetCdfSettings::define(NetCdfWriter& writer) {
    selection_.resolve();
    bool isComplete = true;
    for (int i = 0; i < selection_.count(); ++i) {
        if (settings_[i].att_ == nullptr) defineSetting(writer, i);
        if (settings_[i].att_ != nullptr) continue;
        isComplete = isComplete && log_.isDirectoryRead();
        if (!log_.isDirectoryRead()) continue;
        settings_[i].att_ =
            writer.addGlobalAtt(NetCdfNames::OfElement(selection_.name(i)), Placeholder(NetCdf::NC_FLOAT_TYPE));
        writer.recover();
    }
    return isComplete;
}

void NetCdfSettings::defineSetting(NetCdfWriter& writer, int index) {
    const DataAccess* const access = selection_.access(index);
    if (access == nullptr) return;
    const NetCdfConventions::Types* const types =
        NetCdfConventions::FindTypes(access->getBinaryType(), selection_.name(index));
    if (types == nullptr) return;
    const Str name = NetCdfNames::OfElement(selection_.name(index));
    settings_[index].att_ = writer.addGlobalAtt(name, Placeholder(types->setting_));
    if (types->setting_ != NetCdf::NC_CHAR_TYPE) settings_[index].units_ = writer.addGlobalAtt(name + "_units", "");
    writer.recover();
}

size_t NetCdfSettings::headerRoom() const {
    static const size_t PER_SETTING = 256;
    return PER_SETTING * static_cast<size_t>(selection_.count());
}

void NetCdfSettings::note(const DataEntry& entry) {
    selection_.resolve();
    const int index = selection_.indexOf(entry.getElementCode());
    if (index < 0 || entry.getDataValue() == nullptr) return;
    settings_[index].value_.reset(entry.getDataValue()->copy());
    settings_[index].unit_ = &entry.displayUnit(nullptr);
}

// From the last to the first: of two settings whose names become one, the first has the last word.
void NetCdfSettings::put(NetCdfWriter& writer) {
    bool isChanging = false;
    for (int i = selection_.count() - 1; i >= 0; --i) {
        if (settings_[i].value_ == nullptr || settings_[i].att_ == nullptr) continue;
        if (!isChanging && !writer.beginAttChanges()) return;
        isChanging = true;
        putSetting(writer, settings_[i], selection_.name(i));
    }
    if (isChanging) writer.endAttChanges();
}

// NaN, or 0 among integers, when the value is no number.
template <typename Number>
static Number NumberOf(const DataValue& value, const Unit& unit) {
    Number number = 0;
    value.copyTo(unit, number);
    return number;
}

void NetCdfSettings::putSetting(NetCdfWriter& writer, const Setting& setting, const char* name) {
    const DataValue& value = *setting.value_;
    const Unit& unit = *setting.unit_;
    switch (setting.att_->netCdfType_) {
        case NetCdf::NC_CHAR_TYPE:
            writer.setAttValue(*setting.att_, value.toString(unit));
            break;
        case NetCdf::NC_SHORT_TYPE:
        case NetCdf::NC_INT_TYPE:
            writer.setAttValue(*setting.att_, NumberOf<int>(value, unit));
            break;
        case NetCdf::NC_FLOAT_TYPE:
            writer.setAttValue(*setting.att_, NumberOf<float>(value, unit));
            break;
        case NetCdf::NC_DOUBLE_TYPE:
            writer.setAttValue(*setting.att_, NumberOf<double>(value, unit));
            break;
        default:
            printf("Unable to handle NetCdf type %d for %s\n", setting.att_->netCdfType_, name);
    }
    if (setting.units_ != nullptr) writer.setAttValue(*setting.units_, unit.getName());
}
