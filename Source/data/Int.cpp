#include "data/Int.h"

template <>
RecyclingPool ScalarValue<int>::Pool_("Int DataValue", sizeof(Int));
template <>
ScalarValue<int>::StaticDestructor ScalarValue<int>::StaticDestructor_{};
template class ScalarValue<int>;
