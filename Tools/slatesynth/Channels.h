#pragma once

#include "Ocean.h"
#include "Vehicle.h"
#include "data/BlobType.h"
#include "data/ElementURI.h"
#include "data/UniversalURI.h"
#include "units/Unit.h"

class MissionPlan;

// All that an instrument or a component can know at one moment.
struct Readings {
    const VehicleState& vehicle_;
    const Water& water_;
    const MissionPlan& plan_;
    Random& random_;
    unsigned long cycle_;  // control cycles since the dive began
    double now_;           // seconds since 1970, true time
};

// How a channel's entries look in the log; flags may be added.
enum ChannelTraits : unsigned int {
    PLAIN = 0,
    BEST = 1,       // the preferred source of its universal
    NO_INTERP = 2,  // not to be interpolated between samples
    MILLIS = 4,     // entry times in steps of 1024 microseconds
    UNTYPED = 8,    // a reader's access that leaves unit, type and size to its sibling
    SETTING = 16,   // an element that configures a component
    CONFIG = 32,    // an element that the vehicle's configuration fixes
};

// A run of count_ alike numbers that one component writes every so many cycles. A '#' in the element's name stands for
// the number within the run, from 1.
struct NumberChannel {
    const char* component_;
    const char* element_;
    int count_;
    const Unit& unit_;
    BinaryDataType type_;
    UniversalURI* universal_;  // that it supplies; null: none
    unsigned int traits_;
    unsigned int every_;                                    // cycles
    double (*value_)(const Readings& readings, int index);  // in unit_, index from 0
};

// A text that one component writes every so many cycles.
struct TextChannel {
    const char* component_;
    const char* element_;
    unsigned int traits_;
    unsigned int every_;
    const char* (*value_)(const Readings& readings);  // a constant of the process
};

// An array of numbers; the dimensions are those of the element's name (0: absent).
struct ArrayChannel {
    const char* component_;
    const char* element_;
    const Unit& unit_;
    UniversalURI* universal_;
    BlobType blobType_;
    unsigned short dimensions_[3];
    unsigned short elements_;  // how many are written
    unsigned int every_;
    double (*value_)(const Readings& readings, int index);
};

// A component that looks at a number of another one; its entries carry no value.
struct ReaderChannel {
    const char* component_;
    const char* source_;  // component.element of a number channel
    unsigned int traits_;
    unsigned int every_;
};

// A table that is borrowed from the process.
template <typename Row>
class TableView {
public:
    template <int N>
    TableView(const Row (&rows)[N]) : rows_(rows), count_(N) {}
    int count() const { return count_; }  // rows
    const Row* begin() const { return rows_; }
    const Row* end() const { return rows_ + count_; }

private:
    const Row* rows_;
    int count_;
};

// What the vehicle carries: constants of the process. Rows of one component stand together.
TableView<NumberChannel> NumberChannels();
TableView<TextChannel> TextChannels();
TableView<ArrayChannel> ArrayChannels();
TableView<ReaderChannel> ReaderChannels();
