#include "logger/writer/RequestedVariables.h"

RequestedVariables::RequestedVariables(int count, const char* const* names, const char* const* units,
                                       const float* errors) {
    for (int i = 0; i < count; ++i) {
        add({names[i], units == nullptr ? nullptr : units[i], errors == nullptr ? NAN : errors[i]});
    }
}

void RequestedVariables::addAll(const RequestedVariables& others) {
    for (int i = 0; i < others.count(); ++i) add(others.at(i));
}
