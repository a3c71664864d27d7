#pragma once

#include <cstddef>

#include "units/BinaryDataType.h"
#include "units/Unit.h"
#include "units/Units.h"
#include "utils/Str.h"

class OutStream;
class TextBuffer;

// A typed value bound to a unit and held in that unit's base unit; it knows the bytes that it takes in the log.
// Reading or setting goes through the caller's unit. A number is read in a unit of the same base, or where either side
// is unitless; otherwise copyTo is false and gives NaN (0 for integers). Setting, and comparing with a number, convert
// by the given unit without looking at its base.
// All arithmetic runs in double: the forms of the other types go through it, and what does not fit an integer
// saturates. Threads: not synchronised; an element locks around its value.
class DataValue {
public:
    virtual ~DataValue() {}
    virtual DataValue* copy() const = 0;  // a new value of the same class, unit and content, owned by the caller

    // Arithmetic in the base unit, into the caller's result, which is left alone when this or the other does not fit.
    virtual void minus(const DataValue* other, DataValue* result) const;
    virtual void times(double factor, DataValue* result) const;
    virtual double absDiff(const DataValue* other) const;  // NaN when other cannot be read in this base unit

    // Read in the given unit; false when that is not possible.
    virtual bool copyTo(const Unit& unit, bool& value) const;           // whether the int form is not 0
    virtual bool copyTo(const Unit& unit, unsigned char& value) const;  // the int form, brought into 0 to 255
    virtual bool copyTo(const Unit& unit, double& value) const = 0;
    virtual bool copyTo(const Unit& unit, float& value) const;
    virtual bool copyTo(const Unit& unit, int& value) const;  // truncated; a NaN is 0, and true
    virtual bool copyTo(DataValue& value) const;              // into the other's own type and base unit

    // -1, 0 or 1 as this is below, equal to or above the other; 0 when the difference is NaN, or the other value cannot
    // be read in this base unit.
    virtual int compare(const Unit& unit, const bool& value) const;
    virtual int compare(const Unit& unit, const unsigned char& value) const;
    virtual int compare(const Unit& unit, const double& value) const = 0;
    virtual int compare(const Unit& unit, const float& value) const;
    virtual int compare(const Unit& unit, const int& value) const;
    virtual int compare(const DataValue& other) const;

    // Exactly equal, NaN to NaN too; false when the other value cannot be read in this base unit.
    virtual bool equals(const Unit& unit, const bool& value) const;
    virtual bool equals(const Unit& unit, const unsigned char& value) const;
    virtual bool equals(const Unit& unit, const double& value) const = 0;
    virtual bool equals(const Unit& unit, const float& value) const;
    virtual bool equals(const Unit& unit, const int& value) const;
    virtual bool equals(const DataValue& other) const;

    virtual bool isNaN() const = 0;  // false for integers and texts

    // Store a value given in the unit; true when what would reach the log changed. Integers are truncated, NaN being 0.
    virtual bool setFrom(const Unit& unit, bool value);
    virtual bool setFrom(const Unit& unit, unsigned char value);
    virtual bool setFrom(const Unit& unit, double value) = 0;
    virtual bool setFrom(const Unit& unit, float value);
    virtual bool setFrom(const Unit& unit, int value);
    virtual bool setFrom(const DataValue& other);  // false, too, when it cannot be read in this base unit
    // A shorter way for a value of the same class and unit that is not NaN: takes its number over, and tells it in the
    // unit. False, and nothing has changed, for any other value.
    virtual bool takeOver(const DataValue&, double&) { return false; }

    // The converted number alone, "1.500000", or "2" of an integer; "nan" where the unit does not fit. A text is
    // itself.
    virtual Str toString(const Unit& unit) const;
    virtual Str toString() const;  // in its own unit: "1.500000 m"

    virtual size_t toStream(OutStream& out) const = 0;  // writes the log bytes; their number
    // From log bytes: as many as its type has, whatever the log declares; a buffer of 8 is enough for every number.
    virtual void fromBinary(const void* bytes) = 0;
    virtual size_t getTypeSize() const { return typeSize_; }  // bytes in the log; a text's without its length
    virtual BinaryDataType getBinaryType() const { return binaryType_; }  // NO_TYPE after clearType

    // It holds what the log has of such a type, in that unit.
    bool isOf(BinaryDataType type, const Unit& unit) const { return binaryType_ == type && unit_ == &unit; }

    virtual void appendTo(TextBuffer& text, const Unit& unit) const = 0;  // the text of toString(unit)

    const Unit* getUnit() const { return unit_; }  // null for a value made without one, which counts as unitless
    const Unit& unitOrNone() const { return unit_ == nullptr ? Units::NONE : *unit_; }
    const Unit& getBaseUnit() const { return unitOrNone().getBaseUnit(); }
    void setUnit(const Unit& unit) { unit_ = &unit; }  // borrowed; the number in the base unit stays as it is
    void clearType() { binaryType_ = NO_TYPE; }        // the value and its bytes stay as they are

    // True when a number of this value's unit can be read in the given one: equal bases, or either side unitless.
    bool fits(const Unit& unit) const {
        return &getBaseUnit() == &unit.getBaseUnit() || IsUnitless(getBaseUnit()) || IsUnitless(unit.getBaseUnit());
    }

protected:
    DataValue(const Unit* unit, size_t typeSize, BinaryDataType binaryType)
        : unit_(unit), typeSize_(typeSize), binaryType_(binaryType) {}
    DataValue(const DataValue&) = default;
    DataValue& operator=(const DataValue&) = default;

    const Unit* unit_;  // a constant of the process
    size_t typeSize_;   // bytes in the log
    BinaryDataType binaryType_;

private:
    static bool IsUnitless(const Unit& baseUnit);
};
