#pragma once

#include "data/ScalarValue.h"

template <>
RecyclingPool ScalarValue<float>::Pool_;
template <>
ScalarValue<float>::StaticDestructor ScalarValue<float>::StaticDestructor_;
extern template class ScalarValue<float>;

// A float, whole in the log.
class Float : public PackedScalar<Float, ScalarValue<float>, StoredAs<float, float>, FLOAT4> {
public:
    using PackedScalar::PackedScalar;

    // The 4 bytes into buf; their number, or 0 when room is below 4.
    static unsigned int ToBinary(const float& value, unsigned char* buf, unsigned int room);
};

// A float, in the log without its low byte.
class Float3 : public PackedScalar<Float3, Float, TopBytes<float, 3, 8>, FLOAT3> {
public:
    using PackedScalar::PackedScalar;
};

// A float, in the log without its two low bytes.
class Float2 : public PackedScalar<Float2, Float, TopBytes<float, 2, 16>, FLOAT2> {
public:
    using PackedScalar::PackedScalar;
};
