#include "utils/netcdf/NetCdf.h"

#include <netcdf.h>

#include <algorithm>

#include "data/DataValue.h"
#include "utils/netcdf/NetCdfBlock.h"

const unsigned int NetCdf::NetCdfTypeSize_[CLASSIC_TYPES] = {0, 1, 1, 2, 4, 4, 8};

NetCdf::NetCdfVar::NetCdfVar(int varId, int nDims, const int* dimIds, NetCdfType netCdfType, int ncId)
    : varId_(varId), nDims_(nDims), dimIds_(new int[nDims]), netCdfType_(netCdfType), ncId_(ncId) {
    std::copy_n(dimIds, nDims, dimIds_.get());
}

NetCdf::NetCdfVar::~NetCdfVar() = default;

static bool Take(const DataValue& from, DataValue& to) {
    return !from.isNaN() && from.fits(*to.getUnit()) && from.copyTo(to);
}

void NetCdf::NetCdfVar::hold(const DataValue* value) {
    if (dataValue_ != nullptr) isMissing_ = value == nullptr || !Take(*value, *dataValue_);
}

const char* NetCdf::status() const {
    return nc_strerror(status_);
}
