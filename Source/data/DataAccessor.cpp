#include "data/DataAccessor.h"

#include <cstring>

#include "data/DataElement.h"

const char* const DataAccessor::REQUEST_STRATEGY_STRS[STRATEGY_COUNT] = {"MinPower", "MinError", "MinLatency",
                                                                         "MaxFrequency", "AllDevices"};

DataAccessor::DataAccessor(Component* owner, DataElement* element, AccessorType accessorType,
                           Logger::TimePrecisionType timePrecision, bool noInterpFlag)
    : owner_(owner),
      element_(element),
      accessorType_(accessorType),
      timePrecision_(timePrecision),
      noInterpFlag_(noInterpFlag) {}

const ElementURI& DataAccessor::getUri() const {
    return element_->getUri();
}

const Unit& DataAccessor::getUnit() const {
    return element_->getUnit();
}

int DataAccessor::Str2RequestStrategy(const char* text) {
    for (int strategy = 0; strategy < STRATEGY_COUNT; ++strategy) {
        if (strcmp(text, REQUEST_STRATEGY_STRS[strategy]) == 0) return strategy;
    }
    return NO_STRATEGY;
}

const char* DataAccessor::RequestStrategy2Str(int strategy) {
    return strategy < 0 || strategy >= STRATEGY_COUNT ? "none." : REQUEST_STRATEGY_STRS[strategy];
}
