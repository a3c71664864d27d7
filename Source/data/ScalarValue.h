#pragma once

#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

#include "data/DataValue.h"
#include "io/OutStream.h"
#include "utils/AuvMath.h"
#include "utils/RecyclingPool.h"
#include "utils/TextBuffer.h"

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "numbers go into the log as they lie in memory");

// A number of type T (double, float or int) in its base unit: everything but the bytes that it takes in the log.
// Made and deleted once per data entry, hence out of a pool that T's whole family of classes shares.
template <typename T>
class ScalarValue : public DataValue {
public:
    typedef T Number;
    static constexpr T UNSET = std::numeric_limits<T>::quiet_NaN();  // 0 for int, which has no NaN
    static constexpr unsigned int DECIMALS = 6;                      // of the text of a floating number

    // A subclass with fields of its own would not fit the pool's blocks: making one ends the process.
    static void* operator new(size_t size) { return Pool_.allocate(size); }
    static void operator delete(void* block) { Pool_.release(block); }

    T getValue() const { return value_; }  // in the base unit

    using DataValue::compare;
    using DataValue::copyTo;
    using DataValue::equals;
    using DataValue::setFrom;

    bool copyTo(const Unit& unit, double& value) const override {
        const bool isFitting = fits(unit);
        value = isFitting ? unit.getScaled(static_cast<double>(value_)) : std::numeric_limits<double>::quiet_NaN();
        return isFitting;
    }
    int compare(const Unit& unit, const double& value) const override {
        const Comparable other = InComparable(unit, value);
        return (value_ > other) - (value_ < other);
    }
    bool equals(const Unit& unit, const double& value) const override {
        const Comparable other = InComparable(unit, value);
        return value_ == other || (isNaN() && AuvMath::IsNaN(other));
    }
    bool isNaN() const override { return AuvMath::IsNaN(value_); }
    bool setFrom(const Unit& unit, double value) override {
        const T number = AuvMath::Narrow<T>(unit.getSI(value));
        const bool changed = !equalsForStorage(number);
        value_ = number;
        return changed;
    }
    bool takeOver(const DataValue& other, double& number) override {
        if (binaryType_ == NO_TYPE || other.getBinaryType() != binaryType_ || other.getUnit() != unit_) return false;
        const T value = static_cast<const ScalarValue&>(other).value_;
        if (AuvMath::IsNaN(value)) return false;
        value_ = value;
        number = unitOrNone().getScaled(static_cast<double>(value_));
        return true;
    }
    void appendTo(TextBuffer& text, const Unit& unit) const override {
        if (!fits(unit)) {
            text.append("nan", 3);
            return;
        }
        const double number = unit.getScaled(static_cast<double>(value_));
        if (std::is_integral<T>::value) {
            text.appendInt(AuvMath::Truncate<int>(number));
        } else {
            text.appendFixed(number, DECIMALS);
        }
    }

    // True when storing the candidate (base unit) would not change what reaches the log.
    virtual bool equalsForStorage(T candidate) const = 0;
    // The one number there is, whatever the index.
    virtual bool copyTo(const Unit& unit, double& value, unsigned int) const { return copyTo(unit, value); }

protected:
    ScalarValue(const Unit* unit, T value, size_t typeSize, BinaryDataType binaryType)
        : DataValue(unit, typeSize, binaryType), value_(value) {}

    T value_;  // base unit

private:
    // A Float compares as the float that storing would make of the other number; an Int is not made equal to 1.5.
    typedef typename std::conditional<std::is_integral<T>::value, double, T>::type Comparable;
    static Comparable InComparable(const Unit& unit, double value) {
        return static_cast<Comparable>(unit.getSI(value));
    }

    struct StaticDestructor {
        ~StaticDestructor() { Pool_.drain(); }
    };
    static RecyclingPool Pool_;
    static StaticDestructor StaticDestructor_;
};

// How a number T lies in the log: as a number of another type. An unsigned type reads back zero-extended.
// Pack and Unpack move SIZE bytes; AreSame tells whether two numbers are one in the log.
template <typename T, typename Stored>
struct StoredAs {
    static constexpr size_t SIZE = sizeof(Stored);
    static void Pack(T value, char* bytes) {
        const Stored stored = static_cast<Stored>(value);
        memcpy(bytes, &stored, SIZE);
    }
    static T Unpack(const void* bytes) {
        Stored stored;
        memcpy(&stored, bytes, SIZE);
        return static_cast<T>(stored);
    }
    static bool AreSame(T a, T b) {
        return static_cast<Stored>(a) == static_cast<Stored>(b) || (AuvMath::IsNaN(a) && AuvMath::IsNaN(b));
    }
};

// Or: as its most significant bytes, the others cleared on reading. Numbers that differ in no bit above the lowest
// IGNORED_BITS count as the same.
template <typename T, size_t KEPT_BYTES, unsigned int IGNORED_BITS>
struct TopBytes {
    typedef typename std::conditional<sizeof(T) == 8, unsigned long long, unsigned int>::type Bits;

    static constexpr size_t SIZE = KEPT_BYTES;
    static void Pack(T value, char* bytes) { memcpy(bytes, reinterpret_cast<const char*>(&value) + DROPPED, SIZE); }
    static T Unpack(const void* bytes) {
        T value = 0;
        memcpy(reinterpret_cast<char*>(&value) + DROPPED, bytes, SIZE);
        return value;
    }
    static bool AreSame(T a, T b) {
        return (BitsOf(a) ^ BitsOf(b)) >> IGNORED_BITS == 0 || (AuvMath::IsNaN(a) && AuvMath::IsNaN(b));
    }

private:
    static constexpr size_t DROPPED = sizeof(T) - SIZE;
    static Bits BitsOf(T value) {
        Bits bits;
        memcpy(&bits, &value, sizeof bits);
        return bits;
    }
};

// Gives Class, a number like Base, its bytes in the log: those of Packing, under the code TYPE.
template <typename Class, typename Base, typename Packing, BinaryDataType TYPE>
class PackedScalar : public Base {
public:
    typedef typename Base::Number Number;

    // Without a unit, hence unitless: NaN, or 0 for an integer.
    PackedScalar() : PackedScalar(nullptr, Base::UNSET, Packing::SIZE, TYPE) {}
    // convert: the value is given in the unit; otherwise in its base unit.
    PackedScalar(const Unit& unit, Number value, bool convert)
        : PackedScalar(&unit, convert ? AuvMath::Narrow<Number>(unit.getSI(static_cast<double>(value))) : value,
                       Packing::SIZE, TYPE) {}
    PackedScalar(const Unit& unit, const void* logBytes)  // as fromBinary
        : PackedScalar(&unit, Packing::Unpack(logBytes), Packing::SIZE, TYPE) {}

    DataValue* copy() const override { return new Class(static_cast<const Class&>(*this)); }
    size_t toStream(OutStream& out) const override {
        char bytes[Packing::SIZE];
        Packing::Pack(this->value_, bytes);
        return out.put(bytes, sizeof bytes).bytesWritten();
    }
    void fromBinary(const void* bytes) override { this->value_ = Packing::Unpack(bytes); }
    bool equalsForStorage(Number candidate) const override { return Packing::AreSame(this->value_, candidate); }

protected:
    // For the classes that pack the same number otherwise.
    PackedScalar(const Unit* unit, Number value, size_t typeSize, BinaryDataType binaryType)
        : Base(unit, value, typeSize, binaryType) {}

    // The whole value into buf when it has room for so many bytes; the result is the number written.
    static unsigned int Copy(const Number& value, unsigned char* buf, unsigned int room, unsigned int roomNeeded) {
        if (room < roomNeeded) return 0;
        memcpy(buf, &value, sizeof value);
        return sizeof value;
    }
};
