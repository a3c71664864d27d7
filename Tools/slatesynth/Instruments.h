#pragma once

#include <memory>

#include "Channels.h"
#include "data/Component.h"
#include "data/DataReader.h"
#include "utils/FlexArray.h"

class LogBuilder;

// One access of a component, which has its turn in some control cycles at a fixed place.
class Instrument {
public:
    // best: its entries are marked as those of the preferred source.
    Instrument(DataAccessor& accessor, bool best) : accessor_(accessor), best_(best) {}
    virtual ~Instrument() {}
    Instrument(const Instrument&) = delete;
    Instrument& operator=(const Instrument&) = delete;

    // Turns are numbered in the order in which the vehicle's components run; alike channels take different cycles.
    void setTurn(unsigned int turn, unsigned int every);
    bool isDue();  // in this control cycle; asked once in each, and true in the first
    // Stores one sample, at its own time within the cycle, and logs the entry.
    void sample(const Readings& readings, const Timestamp& cycleStart, LogBuilder& log);

protected:
    // Takes the sample into the element; true when what reaches the log changed.
    virtual bool store(const Readings& readings, const Timestamp& t) = 0;

private:
    DataAccessor& accessor_;  // owned by the Slate or by the instruments
    const bool best_;
    unsigned int turn_ = 0;
    unsigned int every_ = 1;       // cycles
    unsigned int cyclesLeft_ = 0;  // to let pass before the next sample
    bool sampled_ = false;
};

// The vehicle's components with an access for every channel. Building it registers everything in the Slate, which
// writes the directory; sampling it writes the data entries of one control cycle.
class Instruments {
public:
    Instruments();
    void sample(const Readings& readings, const Timestamp& cycleStart, LogBuilder& log);  // those that are due
    unsigned int writerCount() const { return writerCount_; }                             // variables of the log

private:
    void add(const NumberChannel& row, int index);
    void add(const TextChannel& row);
    void add(const ArrayChannel& row);
    void add(const ReaderChannel& row);
    void push(Instrument* instrument, unsigned int every);
    Component& component(const Str& name);  // made when new
    DataWriter& newWriter(const Str& componentName, const ElementURI& uri, UniversalURI* universal,
                          unsigned int traits);
    DataReader& newReader(Component& owner, const ElementURI& uri, unsigned int traits);

    FlexArray<Component*> components_;
    FlexArray<DataReader*> untypedReaders_;  // the Slate owns all the others
    FlexArray<Instrument*> instruments_;
    unsigned int writerCount_ = 0;
};
