#pragma once

#include "data/DataValue.h"
#include "units/Units.h"

// A text, of any bytes. It is no number: it cannot be read or set as one, nor be compared with one.
class StrValue : public DataValue {
public:
    StrValue() : StrValue(Str()) {}  // empty
    // The unit changes nothing of a text; arrays of numbers, which derive from it, need one.
    explicit StrValue(const Str& value, const Unit& unit = Units::NONE);
    StrValue(const char* s, size_t len, const Unit& unit = Units::NONE);  // len Str::NO_POS: up to the NUL

    const Str& getValue() const { return value_; }

    using DataValue::compare;
    using DataValue::copyTo;
    using DataValue::equals;
    using DataValue::setFrom;
    using DataValue::toString;

    DataValue* copy() const override { return new StrValue(*this); }
    bool copyTo(const Unit& unit, double& value) const override;  // false and NaN
    bool copyTo(DataValue& value) const override;                 // into another text
    int compare(const Unit&, const double&) const override { return 0; }
    int compare(const DataValue& other) const override;  // texts by their bytes, 0 with a number
    bool equals(const Unit&, const double&) const override { return false; }
    bool equals(const DataValue& other) const override;
    bool isNaN() const override { return false; }
    bool setFrom(const Unit&, double) override { return false; }
    bool setFrom(const DataValue& other) override;  // from another text
    bool setFrom(const Str& value);                 // true when it changed
    Str toString() const override { return value_; }
    // A length of two bytes, then so many bytes: of 65536 and more as many as the length's low 16 bits say.
    size_t toStream(OutStream& out) const override;
    void fromBinary(const void* bytes) override;             // getTypeSize() bytes
    void fromBinary(const void* bytes, unsigned short len);  // len bytes, which is its type size from then on
    void appendTo(TextBuffer& text, const Unit& unit) const override;

    // The byte at the index as a signed number; false and 0 past the end.
    virtual bool copyTo(const Unit& unit, double& value, unsigned int index) const;

protected:
    Str value_;  // typeSize_ bytes
};
