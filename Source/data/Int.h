#pragma once

#include "data/ScalarValue.h"

template <>
RecyclingPool ScalarValue<int>::Pool_;
template <>
ScalarValue<int>::StaticDestructor ScalarValue<int>::StaticDestructor_;
extern template class ScalarValue<int>;

// An int, whole in the log.
class Int : public PackedScalar<Int, ScalarValue<int>, StoredAs<int, int>, INT4> {
public:
    using PackedScalar::PackedScalar;
};

// An int, in the log its low two bytes.
class Short : public PackedScalar<Short, Int, StoredAs<int, short>, SHORT2> {
public:
    using PackedScalar::PackedScalar;
};

// The same under its own code: the vehicle reads it back sign-extended too, so 40000 comes back as -25536.
class UShort : public PackedScalar<UShort, Int, StoredAs<int, short>, USHORT2> {
public:
    using PackedScalar::PackedScalar;
};

// An int, in the log its low byte, which reads back as 0 to 255.
class UChar : public PackedScalar<UChar, Int, StoredAs<int, unsigned char>, UCHAR1> {
public:
    using PackedScalar::PackedScalar;
};
