#include "data/Float.h"

template <>
RecyclingPool ScalarValue<float>::Pool_("Float DataValue", sizeof(Float));
template <>
ScalarValue<float>::StaticDestructor ScalarValue<float>::StaticDestructor_{};
template class ScalarValue<float>;

unsigned int Float::ToBinary(const float& value, unsigned char* buf, unsigned int room) {
    return Copy(value, buf, room, sizeof value);
}
