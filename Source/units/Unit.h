#pragma once

#include <cstddef>

#include "units/BinaryDataType.h"

class BaseUnit;
class DataValue;

// A unit of measure: its name and abbreviation (both part of the log format), the base unit in which values of its
// dimension are held, and the way there: base = value * multiplier + addend.
// Units are constants of the process. Each registers itself in the UnitRegistry as it is built.
class Unit {
public:
    Unit(const char* name, const char* abbreviation, BinaryDataType type);  // its own base; the texts are borrowed
    // The multiplier is not 0; the default storage type is that of the base.
    Unit(const char* name, const char* abbreviation, const BaseUnit& base, double multiplier, double addend);
    virtual ~Unit() {}
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    const char* getName() const { return name_; }                           // "meter_per_second"
    const char* getAbbreviation() const { return abbreviation_; }           // "m/s"
    size_t getAbbreviationLength() const { return abbreviationLength_; }    // bytes
    const Unit& getBaseUnit() const { return baseUnit_; }                   // the unit itself where it is a base
    BinaryDataType getDefaultDataType() const { return defaultDataType_; }  // never NO_TYPE

    // From this unit to its base unit; the float forms round to float after each step, the int forms truncate and stop
    // at the limits of int. A NaN stays one. The first three change the value in place.
    void toSI(double& value) const;
    void toSI(float& value) const;
    void toSI(int& value) const;
    double getSI(const double& value) const { return inSI(value); }
    float getSI(const float& value) const { return inSI(value); }
    int getSI(int value) const { return inSI(value); }

    // From the base unit to this unit, likewise.
    void toScaled(double& value) const;
    void toScaled(float& value) const;
    void toScaled(int& value) const;
    double getScaled(const double& value) const { return inScaled(value); }
    float getScaled(const float& value) const { return inScaled(value); }
    int getScaled(int value) const { return inScaled(value); }

    // The same base unit object, addend and multiplier; so numbers pass unchanged between units that are equal.
    bool operator==(const Unit& other) const;
    bool operator!=(const Unit& other) const { return !(*this == other); }

    // A new value of this unit, owned by the caller; NO_TYPE takes the unit's default type. Without an initial value
    // it is empty (NaN, 0, ""); with one, which is given in this unit and for integers truncated toward zero, the
    // string types and unknown codes give null. Without one, unknown codes give a double.
    DataValue* dataValue(BinaryDataType type = NO_TYPE) const;
    DataValue* dataValue(const bool& value, BinaryDataType type = NO_TYPE) const;
    DataValue* dataValue(const unsigned char& value, BinaryDataType type = NO_TYPE) const;
    DataValue* dataValue(const int& value, BinaryDataType type = NO_TYPE) const;
    DataValue* dataValue(const float& value, BinaryDataType type = NO_TYPE) const;
    DataValue* dataValue(const double& value, BinaryDataType type = NO_TYPE) const;
    template <typename... Args>
    DataValue* operator()(const Args&... args) const {
        return dataValue(args...);
    }

private:
    template <typename T>
    T inSI(T value) const {
        toSI(value);
        return value;
    }
    template <typename T>
    T inScaled(T value) const {
        toScaled(value);
        return value;
    }

    const char* const name_;
    const char* const abbreviation_;
    const size_t abbreviationLength_;
    const Unit& baseUnit_;
    const BinaryDataType defaultDataType_;
    const double toSiAddend_;
    const double toSiMultiplier_;
    const double fromSiAddend_;
    const double fromSiMultiplier_;
    const bool needSiAddend_;
    const bool needSiMultiplier_;
};

// A unit in which values of one dimension are held. NO_TYPE as the default type stands for FLOAT3.
class BaseUnit : public Unit {
public:
    BaseUnit(const char* name, const char* abbreviation, BinaryDataType type = NO_TYPE)
        : Unit(name, abbreviation, type) {}
};
