#pragma once

#include <array>
#include <cstring>

#include "data/BlobType.h"
#include "data/StrValue.h"
#include "utils/AuvMath.h"

class ElementURI;

// An array of numbers of one type, held as the raw bytes of the log. Matrices and cubes lie row by row.
// What lies past the end reads as NaN (0 for integers) with the result false, and is not written.
class BlobValue : public StrValue {
public:
    static const std::array<size_t, BLOB_TYPE_COUNT> ELEMENT_SIZE;  // bytes, by BlobType

    explicit BlobValue(const ElementURI& uri);                        // empty; the name tells unit and element type
    BlobValue(const void* raw, size_t count, const ElementURI& uri);  // as setFromRaw
    // From values (int, float or double) given in the unit.
    template <typename T>
    BlobValue(const Unit& unit, const T* values, size_t count, const ElementURI& uri) : BlobValue(uri) {
        setUnit(unit);
        setFrom(unit, values, count);
    }

    BlobType getBlobType() const { return blobType_; }  // NOT_BLOB when the name is of no array
    size_t getCount() const;                            // of whole elements; 0 for a type that is none

    using StrValue::copyTo;
    using StrValue::setFrom;
    using StrValue::toString;

    DataValue* copy() const override { return new BlobValue(*this); }
    Str toString() const override { return StrValue::toString(unitOrNone()); }  // as appendTo
    void appendTo(TextBuffer& text, const Unit& unit) const override;           // "24 bytes of meter_per_second"

    // The element at the index of an array of T, whatever the blob's own type; swap reverses its bytes. No unit takes
    // part. Both are false past the end.
    template <typename T>
    bool getElement(size_t index, T& value, bool swap) const {
        value = 0;
        if (index >= value_.length() / sizeof(T)) return false;
        memcpy(&value, value_.data() + index * sizeof(T), sizeof(T));
        if (swap) value = AuvMath::FlipEndian(value);
        return true;
    }
    template <typename T>
    bool setElement(size_t index, T value, bool swap) {
        if (index >= value_.length() / sizeof(T)) return false;
        if (swap) value = AuvMath::FlipEndian(value);
        value_.setInside(index * sizeof(T), reinterpret_cast<const char*>(&value), sizeof(T));
        return true;
    }

    // The element in the unit, through the blob's own type. False past the end; getting also when the unit does not
    // fit. Setting saturates at the type's limits.
    bool get(size_t index, const Unit& unit, double& value) const;
    bool set(size_t index, const Unit& unit, double value);

    // count elements as the log holds them, copied; zeros for a null raw. True when that changed the value.
    bool setFromRaw(const void* raw, size_t count);

    // An array, a matrix (rows) or a cube (planes of rows) of int, float or double in the unit. Copying is false when
    // any element could not be had; setting resizes the blob and is true when it changed.
    template <typename T>
    bool copyTo(const Unit& unit, T* values, size_t count) const {
        return copyRow(unit, 0, values, count);
    }
    template <typename T>
    bool copyTo(const Unit& unit, T* const* rows, size_t rowCount, size_t columnCount) const {
        return copyPlane(unit, 0, rows, rowCount, columnCount);
    }
    template <typename T>
    bool copyTo(const Unit& unit, T* const* const* planes, size_t planeCount, size_t rowCount,
                size_t columnCount) const {
        bool all = true;
        for (size_t i = 0; i < planeCount; ++i) {
            all = copyPlane(unit, i * rowCount * columnCount, planes[i], rowCount, columnCount) && all;
        }
        return all;
    }
    template <typename T>
    bool setFrom(const Unit& unit, const T* values, size_t count) {
        const Str before = resize(count);
        setRow(unit, 0, values, count);
        return value_ != before;
    }
    template <typename T>
    bool setFrom(const Unit& unit, const T* const* rows, size_t rowCount, size_t columnCount) {
        const Str before = resize(rowCount * columnCount);
        setPlane(unit, 0, rows, rowCount, columnCount);
        return value_ != before;
    }
    template <typename T>
    bool setFrom(const Unit& unit, const T* const* const* planes, size_t planeCount, size_t rowCount,
                 size_t columnCount) {
        const Str before = resize(planeCount * rowCount * columnCount);
        for (size_t i = 0; i < planeCount; ++i) {
            setPlane(unit, i * rowCount * columnCount, planes[i], rowCount, columnCount);
        }
        return value_ != before;
    }

private:
    size_t elementSize() const;  // 0 for a type that is none
    Str resize(size_t count);    // count zero elements; the bytes before

    // Rows and planes that begin at the element first.
    template <typename T>
    bool copyRow(const Unit& unit, size_t first, T* values, size_t count) const {
        bool all = true;
        for (size_t i = 0; i < count; ++i) {
            double value = 0;
            all = get(first + i, unit, value) && all;
            values[i] = AuvMath::Narrow<T>(value);
        }
        return all;
    }
    template <typename T>
    bool copyPlane(const Unit& unit, size_t first, T* const* rows, size_t rowCount, size_t columnCount) const {
        bool all = true;
        for (size_t i = 0; i < rowCount; ++i) {
            all = copyRow(unit, first + i * columnCount, rows[i], columnCount) && all;
        }
        return all;
    }
    template <typename T>
    void setRow(const Unit& unit, size_t first, const T* values, size_t count) {
        for (size_t i = 0; i < count; ++i) set(first + i, unit, static_cast<double>(values[i]));
    }
    template <typename T>
    void setPlane(const Unit& unit, size_t first, const T* const* rows, size_t rowCount, size_t columnCount) {
        for (size_t i = 0; i < rowCount; ++i) setRow(unit, first + i * columnCount, rows[i], columnCount);
    }

    BlobType blobType_;
};
