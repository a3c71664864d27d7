#pragma once

#include "data/DataAccessor.h"
#include "data/DataElement.h"

// A component's access to a datum that it writes. The Slate makes and owns it.
class DataWriter : public DataAccessor {
public:
    DataWriter(Component* owner, DataElement* element, Logger::TimePrecisionType timePrecision, bool noInterpFlag)
        : DataAccessor(owner, element, DATA_WRITER, timePrecision, noInterpFlag) {}

    // Stores a value given in the unit: T is bool, unsigned char, int, float or double. True when what reaches the log
    // changed, which is what its data entry says.
    template <typename T>
    bool write(const Unit& unit, const T& value, const Timestamp& t) {
        return element_->set(*this, unit, value, t);
    }
    bool write(const DataValue& value, const Timestamp& t) { return element_->set(*this, value, t); }

    bool isBest() const { return element_->isBest(); }  // no better element supplies the same universal
};

// A writer of an element that feeds a standard quantity.
class UniversalDataWriter final : public DataWriter {
public:
    UniversalDataWriter(Component* owner, DataElement* element, UniversalDataElement* universal,
                        Logger::TimePrecisionType timePrecision, bool noInterpFlag)
        : DataWriter(owner, element, timePrecision, noInterpFlag) {
        universal->addSource(*element);
    }
};
