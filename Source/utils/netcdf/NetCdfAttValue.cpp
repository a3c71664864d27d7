#include "utils/netcdf/NetCdfAttValue.h"

#include <netcdf.h>

#include "utils/AuvMath.h"

unsigned int NetCdfAttValue::nelems() const {
    return type_ == NetCdf::NC_CHAR_TYPE ? static_cast<unsigned int>(text_.length()) : 1;
}

int NetCdfAttValue::put(int ncId, int varId, const Str& name, NetCdf::NetCdfType type) const {
    switch (type_ == NetCdf::NC_CHAR_TYPE ? type_ : type) {
        case NetCdf::NC_CHAR_TYPE:
            return nc_put_att_text(ncId, varId, name.cStr(), text_.length(), text_.data());
        case NetCdf::NC_BYTE_TYPE:
        case NetCdf::NC_UBYTE_TYPE: {
            const unsigned char number = AuvMath::Truncate<unsigned char>(number_);
            return nc_put_att_uchar(ncId, varId, name.cStr(), type, 1, &number);
        }
        case NetCdf::NC_SHORT_TYPE: {
            const int number = AuvMath::Truncate<short>(number_);
            return nc_put_att_int(ncId, varId, name.cStr(), type, 1, &number);
        }
        case NetCdf::NC_INT_TYPE: {
            const int number = AuvMath::Truncate<int>(number_);
            return nc_put_att_int(ncId, varId, name.cStr(), type, 1, &number);
        }
        case NetCdf::NC_FLOAT_TYPE: {
            const float number = static_cast<float>(number_);
            return nc_put_att_float(ncId, varId, name.cStr(), type, 1, &number);
        }
        default:
            return nc_put_att_double(ncId, varId, name.cStr(), type, 1, &number_);
    }
}
