#pragma once

#include "data/ScalarValue.h"

template <>
RecyclingPool ScalarValue<double>::Pool_;
template <>
ScalarValue<double>::StaticDestructor ScalarValue<double>::StaticDestructor_;
extern template class ScalarValue<double>;

// A double, whole in the log.
class Double : public PackedScalar<Double, ScalarValue<double>, StoredAs<double, double>, DOUBLE8> {
public:
    using PackedScalar::PackedScalar;

    // The 8 bytes into buf; their number, or 0 for a room below 9: one byte more than it fills, kept for its callers.
    static unsigned int ToBinary(const double& value, unsigned char* buf, unsigned int room);
};

// A double, in the log without its two low bytes. A change of only the lowest byte is none.
class Double6 : public PackedScalar<Double6, Double, TopBytes<double, 6, 8>, DOUBLE6> {
public:
    using PackedScalar::PackedScalar;
};

// A double, in the log rounded to a float.
class Double4 : public PackedScalar<Double4, Double, StoredAs<double, float>, DOUBLE4> {
public:
    using PackedScalar::PackedScalar;
};
