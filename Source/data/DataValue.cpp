#include "data/DataValue.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "data/ElementURI.h"
#include "utils/AuvMath.h"
#include "utils/TextBuffer.h"

// The bases that say nothing of a dimension: numbers pass between them and any other unit unchanged.
static const Unit* const UNITLESS[] = {
    &Units::NONE,     &Units::NONE_UCHAR, &Units::NONE_SHORT,  &Units::NONE_USHORT,
    &Units::NONE_INT, &Units::NONE_FLOAT, &Units::NONE_DOUBLE, &Units::RATIO,
    &Units::BOOL,     &Units::COUNT,      &Units::ENUM,        &ElementURI::UNSPECIFIED_UNIT,
};

bool DataValue::IsUnitless(const Unit& baseUnit) {
    return std::find(std::begin(UNITLESS), std::end(UNITLESS), &baseUnit) != std::end(UNITLESS);
}

// Arithmetic.

void DataValue::minus(const DataValue* other, DataValue* result) const {
    const Unit& base = getBaseUnit();
    double mine = 0;
    double theirs = 0;
    if (copyTo(base, mine) && other->copyTo(base, theirs)) result->setFrom(base, mine - theirs);
}

void DataValue::times(double factor, DataValue* result) const {
    double mine = 0;
    if (copyTo(getBaseUnit(), mine)) result->setFrom(getBaseUnit(), mine * factor);
}

double DataValue::absDiff(const DataValue* other) const {
    double mine = 0;
    double theirs = 0;
    copyTo(getBaseUnit(), mine);
    other->copyTo(getBaseUnit(), theirs);  // NaN when it cannot be read
    return std::fabs(mine - theirs);
}

// Reading.

bool DataValue::copyTo(const Unit& unit, bool& value) const {
    int number = 0;
    const bool isRead = copyTo(unit, number);
    value = number != 0;
    return isRead;
}

bool DataValue::copyTo(const Unit& unit, unsigned char& value) const {
    int number = 0;
    const bool isRead = copyTo(unit, number);
    value = AuvMath::Truncate<unsigned char>(number);
    return isRead;
}

bool DataValue::copyTo(const Unit& unit, float& value) const {
    double number = 0;
    const bool isRead = copyTo(unit, number);
    value = static_cast<float>(number);
    return isRead;
}

bool DataValue::copyTo(const Unit& unit, int& value) const {
    double number = 0;
    const bool isRead = copyTo(unit, number);
    value = AuvMath::Truncate<int>(number);
    return isRead;
}

bool DataValue::copyTo(DataValue& value) const {
    const Unit& base = value.getBaseUnit();
    double number = 0;
    if (!copyTo(base, number)) return false;
    value.setFrom(base, number);
    return value.copyTo(base, number);  // false for a text, which took no number
}

// Comparing.

int DataValue::compare(const Unit& unit, const bool& value) const {
    return compare(unit, static_cast<double>(value));
}

int DataValue::compare(const Unit& unit, const unsigned char& value) const {
    return compare(unit, static_cast<double>(value));
}

int DataValue::compare(const Unit& unit, const float& value) const {
    return compare(unit, static_cast<double>(value));
}

int DataValue::compare(const Unit& unit, const int& value) const {
    return compare(unit, static_cast<double>(value));
}

int DataValue::compare(const DataValue& other) const {
    double theirs = 0;
    return other.copyTo(getBaseUnit(), theirs) ? compare(getBaseUnit(), theirs) : 0;
}

bool DataValue::equals(const Unit& unit, const bool& value) const {
    return equals(unit, static_cast<double>(value));
}

bool DataValue::equals(const Unit& unit, const unsigned char& value) const {
    return equals(unit, static_cast<double>(value));
}

bool DataValue::equals(const Unit& unit, const float& value) const {
    return equals(unit, static_cast<double>(value));
}

bool DataValue::equals(const Unit& unit, const int& value) const {
    return equals(unit, static_cast<double>(value));
}

bool DataValue::equals(const DataValue& other) const {
    double theirs = 0;
    return other.copyTo(getBaseUnit(), theirs) && equals(getBaseUnit(), theirs);
}

// Storing.

bool DataValue::setFrom(const Unit& unit, bool value) {
    return setFrom(unit, static_cast<double>(value));
}

bool DataValue::setFrom(const Unit& unit, unsigned char value) {
    return setFrom(unit, static_cast<double>(value));
}

bool DataValue::setFrom(const Unit& unit, float value) {
    return setFrom(unit, static_cast<double>(value));
}

bool DataValue::setFrom(const Unit& unit, int value) {
    return setFrom(unit, static_cast<double>(value));
}

bool DataValue::setFrom(const DataValue& other) {
    double theirs = 0;
    return other.copyTo(getBaseUnit(), theirs) && setFrom(getBaseUnit(), theirs);
}

// Text.

Str DataValue::toString(const Unit& unit) const {
    TextBuffer text;
    appendTo(text, unit);
    return text.toStr();
}

Str DataValue::toString() const {
    TextBuffer text;
    appendTo(text, unitOrNone());
    return text.append(' ').append(unitOrNone().getAbbreviation()).toStr();
}
