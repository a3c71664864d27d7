#include <array>
#include <cmath>
#include <type_traits>

#include "data/Double.h"
#include "data/Float.h"
#include "data/Int.h"
#include "data/StrValue.h"
#include "units/Unit.h"

namespace {

// What makes the values of one storage type.
struct Maker {
    DataValue* (*makeUnset_)(const Unit& unit);
    DataValue* (*makeFrom_)(const Unit& unit, double value);
};

template <typename Class>
DataValue* MakeUnset(const Unit& unit) {
    return new Class(unit, Class::UNSET, false);
}

// An integer is cut before it is converted, anything else narrowed after it.
template <typename Class>
DataValue* MakeFrom(const Unit& unit, double value) {
    typedef typename Class::Number Number;
    const double taken = std::is_integral<Number>::value ? std::trunc(value) : value;
    return new Class(unit, AuvMath::Narrow<Number>(unit.getSI(taken)), false);
}

DataValue* MakeText(const Unit& unit) {
    return new StrValue(Str(), unit);
}

DataValue* MakeNothing(const Unit&, double) {
    return nullptr;
}

template <typename Class>
constexpr Maker MakerOf() {
    return {&MakeUnset<Class>, &MakeFrom<Class>};
}

constexpr Maker UNKNOWN_TYPE = {&MakeUnset<Double>, &MakeNothing};

typedef std::array<Maker, DOUBLE6 + 1> MakerTable;

constexpr MakerTable MakersByType() {
    MakerTable makers{};
    for (size_t i = 0; i < makers.size(); ++i) makers[i] = UNKNOWN_TYPE;
    makers[STRVALUE] = {&MakeText, &MakeNothing};
    makers[UCHAR1] = MakerOf<UChar>();
    makers[SHORT2] = MakerOf<Short>();
    makers[USHORT2] = MakerOf<UShort>();
    makers[FLOAT2] = MakerOf<Float2>();
    makers[FLOAT3] = MakerOf<Float3>();
    makers[INT4] = MakerOf<Int>();
    makers[FLOAT4] = MakerOf<Float>();
    makers[DOUBLE8] = MakerOf<Double>();
    makers[DOUBLE4] = MakerOf<Double4>();
    makers[DOUBLE6] = MakerOf<Double6>();
    return makers;
}

constexpr MakerTable MAKERS = MakersByType();

const Maker& MakerFor(const Unit& unit, BinaryDataType type) {
    const size_t code = static_cast<size_t>(type == NO_TYPE ? unit.getDefaultDataType() : type);
    return code < MAKERS.size() ? MAKERS[code] : UNKNOWN_TYPE;
}

}  // namespace

DataValue* Unit::dataValue(BinaryDataType type) const {
    return MakerFor(*this, type).makeUnset_(*this);
}

DataValue* Unit::dataValue(const bool& value, BinaryDataType type) const {
    return dataValue(static_cast<double>(value), type);
}

DataValue* Unit::dataValue(const unsigned char& value, BinaryDataType type) const {
    return dataValue(static_cast<double>(value), type);
}

DataValue* Unit::dataValue(const int& value, BinaryDataType type) const {
    return dataValue(static_cast<double>(value), type);
}

DataValue* Unit::dataValue(const float& value, BinaryDataType type) const {
    return dataValue(static_cast<double>(value), type);
}

DataValue* Unit::dataValue(const double& value, BinaryDataType type) const {
    return MakerFor(*this, type).makeFrom_(*this, value);
}
