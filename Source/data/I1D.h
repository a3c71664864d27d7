#pragma once

#include <limits>

#include "units/Unit.h"

// A short row of numbers held in a base unit, readable by index.
template <typename T>
class I1D {
public:
    virtual ~I1D() {}
    // How many numbers; it never changes.
    virtual unsigned int size() const = 0;
    virtual const T* data() const = 0;  // size() numbers in the base unit, as long as this lives

    // The number at the index in the unit; false and NaN past the end.
    bool copyTo(const Unit& unit, T& value, unsigned int index) const {
        const bool isInside = index < size();
        value = isInside ? unit.getScaled(data()[index]) : std::numeric_limits<T>::quiet_NaN();
        return isInside;
    }

protected:
    I1D() = default;
    I1D(const I1D&) = default;
    I1D& operator=(const I1D&) = default;
};
