#include "utils/netcdf/NetCdf.h"

#include <netcdf.h>

#include <algorithm>
#include <limits>

#include "data/DataValue.h"
#include "utils/netcdf/NetCdfBlock.h"

const unsigned int NetCdf::NetCdfTypeSize_[CLASSIC_TYPES] = {0, 1, 1, 2, 4, 4, 8};

NetCdf::NetCdfVar::NetCdfVar(int varId, int nDims, const int* dimIds, NetCdfType netCdfType, int ncId)
    : varId_(varId),
      nDims_(nDims),
      dimIds_(new int[nDims]),
      netCdfType_(netCdfType),
      ncId_(ncId),
      number_(std::numeric_limits<double>::quiet_NaN()) {
    std::copy_n(dimIds, nDims, dimIds_.get());
}

NetCdf::NetCdfVar::~NetCdfVar() = default;

static bool Take(const DataValue& from, DataValue& to) {
    return !from.isNaN() && from.fits(*to.getUnit()) && from.copyTo(to);
}

void NetCdf::NetCdfVar::setHolder(DataValue* holder) {
    dataValue_ = holder;
    isMissing_ = holder == nullptr;
    readHolder();
}

void NetCdf::NetCdfVar::hold(const DataValue* value) {
    if (value != nullptr && dataValue_ != nullptr && dataValue_->takeOver(*value, number_)) {
        isMissing_ = false;
        return;
    }
    isMissing_ = dataValue_ == nullptr || value == nullptr || !Take(*value, *dataValue_);
    readHolder();
}

void NetCdf::NetCdfVar::hold(double number) {
    isMissing_ = dataValue_ == nullptr;
    if (!isMissing_) dataValue_->setFrom(*dataValue_->getUnit(), number);
    readHolder();
}

// Once for a value, however many records take it.
void NetCdf::NetCdfVar::readHolder() {
    number_ = std::numeric_limits<double>::quiet_NaN();
    if (!isMissing_) dataValue_->copyTo(*dataValue_->getUnit(), number_);
}

const char* NetCdf::status() const {
    return nc_strerror(status_);
}
