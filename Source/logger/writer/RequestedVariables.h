#pragma once

#include <cmath>

#include "utils/FlexArray.h"

// A variable that an output is asked for. The texts are borrowed.
struct RequestedVariable {
    const char* name_;            // of an element or a universal
    const char* unit_ = nullptr;  // to show it in, by name or abbreviation; null: the unit of the log
    float error_ = NAN;           // by which a thinned series may be off, in the base unit; NaN: none is given
};

// The variables that an output is asked for, in their order. The texts outlive the list and its copies.
class RequestedVariables {
public:
    RequestedVariables() = default;
    // From parallel lists of that length. Units and errors may be null, and so may each unit.
    RequestedVariables(int count, const char* const* names, const char* const* units = nullptr,
                       const float* errors = nullptr);
    RequestedVariables(const RequestedVariables& other) { addAll(other); }
    RequestedVariables& operator=(const RequestedVariables&) = delete;

    void add(const RequestedVariable& variable) { variables_.push(new RequestedVariable(variable)); }
    void addAll(const RequestedVariables& others);
    int count() const { return static_cast<int>(variables_.size()); }
    const RequestedVariable& at(int index) const { return *variables_.at(static_cast<unsigned int>(index)); }
    RequestedVariable& last() { return *variables_.peek(-1); }  // of a list that is not empty

private:
    FlexArray<RequestedVariable*> variables_{true};  // owned
};
