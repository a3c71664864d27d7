#pragma once

#include "data/ElementURI.h"
#include "data/Logger.h"

class Component;
class DataAccess;
class DataElement;

// A component's live attachment to an element. On board only: a log is read through its DataAccess records.
// Threads: what it gives is locked by the element, not here.
class DataAccessor {
public:
    enum AccessorType { DATA_READER = 0, DATA_WRITER = 1 };
    // What a reader of a universal prefers among its sources; the numbers are the places of the words below.
    enum RequestStrategy {
        NO_STRATEGY = -1,  // and ALL_DEVICES: the first that is active
        MIN_POWER = 0,
        MIN_ERROR = 1,
        MIN_LATENCY = 2,
        MAX_FREQUENCY = 3,
        ALL_DEVICES = 4,
        STRATEGY_COUNT = 5,
    };
    static const char* const REQUEST_STRATEGY_STRS[STRATEGY_COUNT];

    // noInterpFlag: its values must not be interpolated between samples.
    DataAccessor(Component* owner, DataElement* element, AccessorType accessorType,
                 Logger::TimePrecisionType timePrecision = Logger::TIME_PRECISION_MICROS, bool noInterpFlag = false);
    virtual ~DataAccessor() {}
    DataAccessor(const DataAccessor&) = delete;
    DataAccessor& operator=(const DataAccessor&) = delete;

    virtual DataElement* getElement() const { return element_; }  // never null; the log's
    virtual Component* getOwner() const { return owner_; }        // null when no component has it
    virtual const ElementURI& getUri() const;                     // of the element, of a universal its own
    const Unit& getUnit() const;                                  // of the element

    AccessorType getAccessorType() const { return accessorType_; }
    Logger::TimePrecisionType getTimePrecision() const { return timePrecision_; }  // of its entries' times
    bool getNoInterpFlag() const { return noInterpFlag_; }  // its values must not be interpolated between samples
    // The coded access under which its entries stand in the log; null until the log made one.
    DataAccess* getDataAccess() const { return dataAccess_; }
    void setDataAccess(DataAccess* dataAccess) { dataAccess_ = dataAccess; }

    static int Str2RequestStrategy(const char* text);      // exact; -1 when the text is none of the words
    static const char* RequestStrategy2Str(int strategy);  // "none." when out of range

protected:
    Component* const owner_;      // borrowed; may be null
    DataElement* const element_;  // owned by the log
    const AccessorType accessorType_;
    const Logger::TimePrecisionType timePrecision_;
    const bool noInterpFlag_;
    DataAccess* dataAccess_ = nullptr;  // owned by the log
};
