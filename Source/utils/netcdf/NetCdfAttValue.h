#pragma once

#include "utils/Str.h"
#include "utils/netcdf/NetCdf.h"

// The value of an attribute: a text, copied and of any bytes, or one number with its type.
class NetCdfAttValue {
public:
    NetCdfAttValue(const Str& text) : type_(NetCdf::NC_CHAR_TYPE), text_(text) {}
    NetCdfAttValue(const char* text) : NetCdfAttValue(Str(text)) {}
    NetCdfAttValue(unsigned char number) : NetCdfAttValue(NetCdf::NC_UBYTE_TYPE, number) {}
    NetCdfAttValue(short number) : NetCdfAttValue(NetCdf::NC_SHORT_TYPE, number) {}
    NetCdfAttValue(int number) : NetCdfAttValue(NetCdf::NC_INT_TYPE, number) {}
    NetCdfAttValue(float number) : NetCdfAttValue(NetCdf::NC_FLOAT_TYPE, static_cast<double>(number)) {}
    NetCdfAttValue(double number) : NetCdfAttValue(NetCdf::NC_DOUBLE_TYPE, number) {}

    NetCdf::NetCdfType type() const { return type_; }  // that it was made with
    unsigned int nelems() const;                       // bytes of a text, 1 for a number
    // Puts the value into the file as that type, fitted to it (integers truncated, saturated, NaN as 0); a text is put
    // as text. The library's status, 0 for success.
    int put(int ncId, int varId, const Str& name, NetCdf::NetCdfType type) const;

private:
    NetCdfAttValue(NetCdf::NetCdfType type, double number) : type_(type), number_(number) {}

    const NetCdf::NetCdfType type_;
    const Str text_;
    const double number_ = 0;
};
