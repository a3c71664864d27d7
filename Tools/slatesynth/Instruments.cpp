#include "Instruments.h"

#include "LogBuilder.h"
#include "data/BlobValue.h"
#include "data/DataWriter.h"
#include "data/StrValue.h"
#include "logger/entry/DataEntry.h"
#include "units/Units.h"

namespace {

const unsigned int FIRST_TURN = 4000;   // microseconds after the cycle's start
const unsigned int TURN_LENGTH = 1000;  // microseconds; 350 channels fit into a cycle
const unsigned int JITTER_MASK = 511;   // microseconds

// "name#" of a run with more than one number: name1, name2, ...
Str NumberedName(const char* pattern, int index) {
    const Str name(pattern);
    const size_t mark = name.find('#');
    return mark == Str::NO_POS ? name : name.substr(0, mark) + Str(index + 1, 10, 0) + name.substr(mark + 1);
}

ElementURI::ElementType TypeOf(unsigned int traits) {
    if (traits & SETTING) return ElementURI::SETTING_ELEMENT;
    return traits & CONFIG ? ElementURI::CONFIG_ELEMENT : ElementURI::DATA_ELEMENT;
}

Logger::TimePrecisionType PrecisionOf(unsigned int traits) {
    return traits & MILLIS ? Logger::TIME_PRECISION_MILLIS : Logger::TIME_PRECISION_MICROS;
}

// An access that leaves unit, type and size to the one through which the element is written.
DataAccess* NewUntypedAccess(const DataReader& reader) {
    DataAccess* const access =
        new DataAccess(reader.getOwner()->getName().getCode(), reader.getUri().getCode(), DataAccess::NO_CODE, "none",
                       NO_TYPE, 0, Slate::GetNextDataAccessCode(), DataAccessor::DATA_READER);
    access->setTimePrecision(reader.getTimePrecision());
    DataAccess* const registered = Slate::RegisterDataAccess(access);
    Slate::WriteDataAccessEntry(registered, nullptr, false);
    return registered;
}

class NumberInstrument final : public Instrument {
public:
    NumberInstrument(const NumberChannel& row, int index, DataWriter& writer)
        : Instrument(writer, row.traits_ & BEST), row_(row), index_(index), writer_(writer) {}

private:
    bool store(const Readings& readings, const Timestamp& t) override {
        return writer_.write(row_.unit_, row_.value_(readings, index_), t);
    }

    const NumberChannel& row_;
    const int index_;
    DataWriter& writer_;
};

class TextInstrument final : public Instrument {
public:
    TextInstrument(const TextChannel& row, DataWriter& writer)
        : Instrument(writer, row.traits_ & BEST), row_(row), writer_(writer) {}

private:
    bool store(const Readings& readings, const Timestamp& t) override {
        return writer_.write(StrValue(Str(row_.value_(readings))), t);
    }

    const TextChannel& row_;
    DataWriter& writer_;
};

class ArrayInstrument final : public Instrument {
public:
    ArrayInstrument(const ArrayChannel& row, const ElementURI& uri, DataWriter& writer)
        : Instrument(writer, row.universal_ != nullptr), row_(row), writer_(writer), value_(uri) {
        const Str zeros(nullptr, BlobValue::ELEMENT_SIZE[row.blobType_] * row.elements_);
        value_.setFromRaw(zeros.data(), row.elements_);
    }

private:
    bool store(const Readings& readings, const Timestamp& t) override {
        for (int i = 0; i < row_.elements_; ++i) value_.set(i, row_.unit_, row_.value_(readings, i));
        return writer_.write(value_, t);
    }

    const ArrayChannel& row_;
    DataWriter& writer_;
    BlobValue value_;
};

// Looks at what another component wrote.
class ReaderInstrument final : public Instrument {
public:
    explicit ReaderInstrument(DataReader& reader) : Instrument(reader, false) {}

private:
    bool store(const Readings&, const Timestamp&) override { return false; }
};

}  // namespace

void Instrument::setTurn(unsigned int turn, unsigned int every) {
    turn_ = turn;
    every_ = every;
}

bool Instrument::isDue() {
    if (cyclesLeft_ > 0) {
        --cyclesLeft_;
        return false;
    }
    cyclesLeft_ = sampled_ ? every_ - 1 : turn_ % every_;
    sampled_ = true;
    return true;
}

void Instrument::sample(const Readings& readings, const Timestamp& cycleStart, LogBuilder& log) {
    Timestamp t = cycleStart;
    t.addFromMicros(FIRST_TURN + turn_ * TURN_LENGTH + (readings.random_.next() & JITTER_MASK));
    const bool changed = store(readings, t);
    DataEntry entry(&accessor_, best_, changed, t);
    log.log(entry);
}

Instruments::Instruments() : components_(true), untypedReaders_(true), instruments_(true) {
    for (const NumberChannel& row : NumberChannels()) {
        for (int index = 0; index < row.count_; ++index) add(row, index);
    }
    for (const TextChannel& row : TextChannels()) add(row);
    for (const ArrayChannel& row : ArrayChannels()) add(row);
    writerCount_ = instruments_.size();
    for (const ReaderChannel& row : ReaderChannels()) add(row);
}

void Instruments::sample(const Readings& readings, const Timestamp& cycleStart, LogBuilder& log) {
    for (unsigned int i = 0; i < instruments_.size(); ++i) {
        Instrument& instrument = *instruments_.at(i);
        if (instrument.isDue()) instrument.sample(readings, cycleStart, log);
    }
}

void Instruments::add(const NumberChannel& row, int index) {
    const Str component = NumberedName(row.component_, index);
    const ElementURI uri(ElementURI::NO_CODE, ElementURI::buildURI(component, NumberedName(row.element_, index)),
                         TypeOf(row.traits_), row.unit_, row.type_);
    DataWriter& writer = newWriter(component, uri, row.universal_, row.traits_);
    push(new NumberInstrument(row, index, writer), row.every_);
}

void Instruments::add(const TextChannel& row) {
    const ElementURI uri(ElementURI::NO_CODE, ElementURI::buildURI(row.component_, row.element_), TypeOf(row.traits_),
                         Units::NONE, STRVALUE);
    DataWriter& writer = newWriter(row.component_, uri, nullptr, row.traits_);
    push(new TextInstrument(row, writer), row.every_);
}

void Instruments::add(const ArrayChannel& row) {
    const ElementURI uri(ElementURI::NO_CODE, ElementURI::buildURI(row.component_, row.element_),
                         ElementURI::DATA_ELEMENT, row.unit_, STRVALUE, row.blobType_, row.dimensions_[0],
                         row.dimensions_[1], row.dimensions_[2]);
    DataWriter& writer = newWriter(row.component_, uri, row.universal_, PLAIN);
    push(new ArrayInstrument(row, uri, writer), row.every_);
}

void Instruments::add(const ReaderChannel& row) {
    DataReader& reader = newReader(component(row.component_), *Slate::FindElementURI(row.source_), row.traits_);
    push(new ReaderInstrument(reader), row.every_);
}

void Instruments::push(Instrument* instrument, unsigned int every) {
    instrument->setTurn(instruments_.size(), every);
    instruments_.push(instrument);
}

Component& Instruments::component(const Str& name) {
    for (unsigned int i = 0; i < components_.size(); ++i) {
        if (components_.at(i)->getName() == name) return *components_.at(i);
    }
    components_.push(new Component(name));
    return *components_.peek(-1);
}

DataWriter& Instruments::newWriter(const Str& componentName, const ElementURI& uri, UniversalURI* universal,
                                   unsigned int traits) {
    Component& owner = component(componentName);
    const bool noInterp = (traits & NO_INTERP) != 0;
    if (universal == nullptr) return *Slate::NewOutputWriter(&owner, uri, PrecisionOf(traits), noInterp);
    return *Slate::NewUniversalWriter(&owner, uri, *universal, PrecisionOf(traits), noInterp);
}

DataReader& Instruments::newReader(Component& owner, const ElementURI& uri, unsigned int traits) {
    if (!(traits & UNTYPED)) return *Slate::NewReader(&owner, uri, PrecisionOf(traits));
    untypedReaders_.push(new DataReader(&owner, Slate::GetElement(uri), PrecisionOf(traits), false));
    DataReader& reader = *untypedReaders_.peek(-1);
    reader.setDataAccess(NewUntypedAccess(reader));
    return reader;
}
