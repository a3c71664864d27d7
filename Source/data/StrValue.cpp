#include "data/StrValue.h"

#include <limits>

#include "io/OutStream.h"
#include "utils/AuvMath.h"
#include "utils/TextBuffer.h"

// The value as a text, null when it is a number.
static const StrValue* AsText(const DataValue& value) {
    return dynamic_cast<const StrValue*>(&value);
}

StrValue::StrValue(const Str& value, const Unit& unit) : DataValue(&unit, value.length(), STRVALUE), value_(value) {}

StrValue::StrValue(const char* s, size_t len, const Unit& unit) : StrValue(Str(s, len), unit) {}

bool StrValue::copyTo(const Unit&, double& value) const {
    value = std::numeric_limits<double>::quiet_NaN();
    return false;
}

bool StrValue::copyTo(DataValue& value) const {
    StrValue* const text = dynamic_cast<StrValue*>(&value);
    if (text != nullptr) text->setFrom(value_);
    return text != nullptr;
}

int StrValue::compare(const DataValue& other) const {
    const StrValue* const text = AsText(other);
    return text == nullptr ? 0 : AuvMath::Sign(value_.compare(text->value_));
}

bool StrValue::equals(const DataValue& other) const {
    const StrValue* const text = AsText(other);
    return text != nullptr && value_ == text->value_;
}

bool StrValue::setFrom(const DataValue& other) {
    const StrValue* const text = AsText(other);
    return text != nullptr && setFrom(text->value_);
}

bool StrValue::setFrom(const Str& value) {
    const bool changed = value_ != value;
    value_ = value;
    typeSize_ = value_.length();
    return changed;
}

size_t StrValue::toStream(OutStream& out) const {
    const unsigned short length = static_cast<unsigned short>(value_.length());
    const size_t lengthBytes = out.writeShort(static_cast<short>(length)).bytesWritten();
    return lengthBytes + out.write(value_.data(), length).bytesWritten();
}

void StrValue::fromBinary(const void* bytes) {
    value_.set(static_cast<const char*>(bytes), typeSize_);
}

void StrValue::fromBinary(const void* bytes, unsigned short len) {
    typeSize_ = len;
    fromBinary(bytes);
}

void StrValue::appendTo(TextBuffer& text, const Unit&) const {
    text.append(value_);
}

bool StrValue::copyTo(const Unit&, double& value, unsigned int index) const {
    const bool isInside = index < value_.length();
    value = isInside ? static_cast<signed char>(value_[index]) : 0;
    return isInside;
}
