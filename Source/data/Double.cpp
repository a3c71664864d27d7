#include "data/Double.h"

template <>
RecyclingPool ScalarValue<double>::Pool_("Double DataValue", sizeof(Double));
template <>
ScalarValue<double>::StaticDestructor ScalarValue<double>::StaticDestructor_{};
template class ScalarValue<double>;

unsigned int Double::ToBinary(const double& value, unsigned char* buf, unsigned int room) {
    return Copy(value, buf, room, sizeof value + 1);
}
