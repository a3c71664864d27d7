#include "units/Unit.h"

#include <cstring>

#include "units/UnitRegistry.h"
#include "utils/AuvMath.h"

namespace {

// value * multiplier + addend, rounded to T after each step; a step that is not needed does not touch the value.
template <typename T>
void Convert(T& value, bool needMultiplier, double multiplier, bool needAddend, double addend) {
    if (needMultiplier) value = static_cast<T>(value * multiplier);
    if (needAddend) value = static_cast<T>(value + addend);
}

}  // namespace

Unit::Unit(const char* name, const char* abbreviation, BinaryDataType type)
    : name_(name),
      abbreviation_(abbreviation),
      abbreviationLength_(strlen(abbreviation)),
      baseUnit_(*this),
      defaultDataType_(type == NO_TYPE ? FLOAT3 : type),
      toSiAddend_(0),
      toSiMultiplier_(1),
      fromSiAddend_(0),
      fromSiMultiplier_(1),
      needSiAddend_(false),
      needSiMultiplier_(false) {
    UnitRegistry::AddUnit(this);
}

// A NaN differs from everything, so a NaN addend or multiplier is needed and spoils every conversion.
Unit::Unit(const char* name, const char* abbreviation, const BaseUnit& base, double multiplier, double addend)
    : name_(name),
      abbreviation_(abbreviation),
      abbreviationLength_(strlen(abbreviation)),
      baseUnit_(base),
      defaultDataType_(base.getDefaultDataType()),
      toSiAddend_(addend),
      toSiMultiplier_(multiplier),
      fromSiAddend_(-addend / multiplier),
      fromSiMultiplier_(1 / multiplier),
      needSiAddend_(addend != 0),
      needSiMultiplier_(multiplier != 1) {
    UnitRegistry::AddUnit(this);
}

void Unit::toSI(double& value) const {
    Convert(value, needSiMultiplier_, toSiMultiplier_, needSiAddend_, toSiAddend_);
}

void Unit::toSI(float& value) const {
    Convert(value, needSiMultiplier_, toSiMultiplier_, needSiAddend_, toSiAddend_);
}

void Unit::toSI(int& value) const {
    value = AuvMath::Truncate<int>(getSI(static_cast<double>(value)));
}

void Unit::toScaled(double& value) const {
    Convert(value, needSiMultiplier_, fromSiMultiplier_, needSiAddend_, fromSiAddend_);
}

void Unit::toScaled(float& value) const {
    Convert(value, needSiMultiplier_, fromSiMultiplier_, needSiAddend_, fromSiAddend_);
}

void Unit::toScaled(int& value) const {
    value = AuvMath::Truncate<int>(getScaled(static_cast<double>(value)));
}

bool Unit::operator==(const Unit& other) const {
    return &baseUnit_ == &other.baseUnit_ && toSiAddend_ == other.toSiAddend_ &&
           toSiMultiplier_ == other.toSiMultiplier_;
}
