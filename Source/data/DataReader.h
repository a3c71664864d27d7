#pragma once

#include "data/DataAccessor.h"
#include "data/DataElement.h"

// A component's access to a datum that it reads. The log makes and owns it.
class DataReader : public DataAccessor {
public:
    // The element and the owner, who may be null, are borrowed. The element does not learn of it here: registerRead.
    DataReader(Component* owner, DataElement* element, Logger::TimePrecisionType timePrecision, bool isInput)
        : DataAccessor(owner, element, DATA_READER, timePrecision), isInput_(isInput) {}

    bool isInput() const { return isInput_; }  // its component cannot run without the datum

    // The value in the unit: T is bool, unsigned char, int, float or double. False, with a report, while the element is
    // not active; false too when the unit does not fit.
    template <typename T>
    bool read(const Unit& unit, T& value) const {
        return getElement()->get(unit, value);
    }
    bool read(DataValue& value) const { return getElement()->get(value); }            // in its own type
    double asDouble(const Unit& unit) const { return getElement()->asDouble(unit); }  // NaN when not readable

private:
    const bool isInput_;
};

// A reader of a standard quantity, from whichever element supplies it best by the reader's strategy.
class UniversalDataReader final : public DataReader {
public:
    // The universal is borrowed.
    UniversalDataReader(Component* owner, UniversalDataElement* universal, RequestStrategy strategy,
                        Logger::TimePrecisionType timePrecision)
        : DataReader(owner, universal, timePrecision, false), universal_(universal), strategy_(strategy) {}

    // The source that is best now, which may change from call to call; the universal itself while none is active.
    DataElement* getElement() const override {
        DataElement* const best = universal_->getBest(strategy_);
        return best == nullptr ? universal_ : best;
    }

private:
    UniversalDataElement* const universal_;  // owned by the log
    const RequestStrategy strategy_;
};
