#pragma once

#include "data/DataAccessor.h"
#include "data/DataElement.h"

// A component's access to a datum that it writes. The log makes and owns it.
class DataWriter : public DataAccessor {
public:
    // The element and the owner, who may be null, are borrowed. The element does not learn of it here: registerWrite.
    DataWriter(Component* owner, DataElement* element, Logger::TimePrecisionType timePrecision, bool noInterpFlag)
        : DataAccessor(owner, element, DATA_WRITER, timePrecision, noInterpFlag) {}

    // Stores a value given in the unit: T is bool, unsigned char, int, float or double. True when what reaches the log
    // changed, which is what its data entry says. Nothing is logged here: the entry is its component's to make.
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
    // Makes the element a source of the universal; both are borrowed.
    UniversalDataWriter(Component* owner, DataElement* element, UniversalDataElement* universal,
                        Logger::TimePrecisionType timePrecision, bool noInterpFlag)
        : DataWriter(owner, element, timePrecision, noInterpFlag) {
        universal->addSource(*element);
    }
};
