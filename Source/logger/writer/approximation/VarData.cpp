#include "logger/writer/approximation/VarData.h"

#include <cmath>
#include <limits>

#include "data/DataValue.h"

static const float NO_SLOPE = std::numeric_limits<float>::quiet_NaN();

VarData::VarData(const DataEntry& first, float approxError)
    : dataEntry_(new DataEntry(first)),
      unit_(first.valueUnit().getBaseUnit()),
      approxError_(approxError),
      minUpperSlope_(NO_SLOPE),
      maxLowerSlope_(NO_SLOPE),
      startValue_(numberOf(first)),
      endValue_(startValue_),
      nextValue_(startValue_),
      startTime_(first.getTimestamp()),
      endTime_(startTime_),
      nextTime_(startTime_) {}

bool VarData::checkNextEntry(const DataEntry* entry) {
    dataEntry_->setDataAccess(entry->getDataAccess());
    if (entry->isBest()) dataEntry_->setBest(true);
    nextValue_ = numberOf(*entry);
    nextTime_ = entry->getTimestamp();
    ready_ = false;
    wasNaN_ = std::isnan(nextValue_);
    if (wasNaN_) return closeSegment();
    if (std::isnan(startValue_)) {  // a gap ends here
        startValue_ = endValue_ = nextValue_;
        startTime_ = endTime_ = nextTime_;
        return closeSegment();
    }
    const float dt = getDeltaT(nextTime_);
    const double d = nextValue_ - startValue_;
    const float upper = dt == 0 ? NO_SLOPE : static_cast<float>((d + approxError_) / dt);
    const float lower = dt == 0 ? NO_SLOPE : static_cast<float>((d - approxError_) / dt);
    if (!admit(lower, upper)) return closeSegment();
    endValue_ = nextValue_;
    endTime_ = nextTime_;
    return false;
}

// Opens or narrows the corridor; false when the point lies outside. NaN on either side admits.
bool VarData::admit(float lower, float upper) {
    if (std::isnan(maxLowerSlope_)) {
        maxLowerSlope_ = lower;
        minUpperSlope_ = upper;
        return true;
    }
    const double mid = (upper + lower) * 0.5;
    if (mid < maxLowerSlope_ || mid > minUpperSlope_ || approxError_ == 0) return false;
    if (upper < minUpperSlope_) minUpperSlope_ = upper;
    if (lower > maxLowerSlope_) maxLowerSlope_ = lower;
    return true;
}

bool VarData::closeSegment() {
    ready_ = true;
    return true;
}

void VarData::advance() {
    dataEntry_->setNumber(unit_, endValue_);
    dataEntry_->setTimestamp(endTime_);
    startValue_ = endValue_;
    startTime_ = endTime_;
    endValue_ = nextValue_;
    endTime_ = nextTime_;
    minUpperSlope_ = maxLowerSlope_ = NO_SLOPE;
}

float VarData::getDeltaT(const Timestamp& t) const {
    return static_cast<float>((t - startTime_).asDouble());
}
