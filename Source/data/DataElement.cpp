#include "data/DataElement.h"

#include <cmath>

#include "data/Component.h"
#include "data/DataReader.h"
#include "data/DataWriter.h"
#include "data/Log.h"

const char* const DataElement::UninitializedException::MESSAGE = "data element is not active.";

namespace {

bool IsActive(const Component* owner) {
    return owner == nullptr || owner->isActive();
}
bool IsFailed(const Component* owner) {
    return owner != nullptr && owner->isFailed();
}

// The attachment of that owner; null when it has none.
template <typename Accessor>
Accessor* FindByOwner(const FlexArray<Accessor*>& accessors, const Component* owner) {
    for (unsigned int i = 0; i < accessors.size(); ++i) {
        if (accessors.at(i)->getOwner() == owner) return accessors.at(i);
    }
    return nullptr;
}

// What a source costs by a strategy: the smaller the better, NaN when not known.
float CostOf(const DataElement& source, DataAccessor::RequestStrategy strategy) {
    switch (strategy) {
        case DataAccessor::MIN_POWER:
            return source.getPower();
        case DataAccessor::MIN_ERROR:
            return source.getError();
        case DataAccessor::MIN_LATENCY:
            return source.getLatency();
        case DataAccessor::MAX_FREQUENCY:
            return -source.getFrequency();
        default:
            return 0;
    }
}

bool IsCheaper(float cost, float than) {
    return cost < than || (std::isnan(than) && !std::isnan(cost));
}

}  // namespace

void DataElement::UninitializedException::Report(const DataElement& element) {
    Log::Current().getLogger().syslog(element.getUri() + ": " + MESSAGE, Syslog::ERROR);
}

DataElement::DataElement(const ElementURI& uri, DataValue* value, float accuracy)
    : name_(uri), writtenAccuracy_(accuracy), value_(value) {}

const Unit& DataElement::getUnit() const {
    return value_ != nullptr && value_->getUnit() != nullptr ? *value_->getUnit() : name_.getUnit();
}

bool DataElement::isOrphaned() const {
    return suppliers_.isEmpty();
}

bool DataElement::isOwnersActive() const {
    for (unsigned int i = 0; i < suppliers_.size(); ++i) {
        if (IsActive(suppliers_.at(i)->getOwner())) return true;
    }
    return false;
}

bool DataElement::isOwnersFailed() const {
    for (unsigned int i = 0; i < suppliers_.size(); ++i) {
        if (!IsFailed(suppliers_.at(i)->getOwner())) return false;
    }
    return !suppliers_.isEmpty();
}

bool DataElement::isActive() const {
    return hasBeenSet_ && !unavailable_ && !invalid_ && isOwnersActive();
}

bool DataElement::wasTouchedSinceLastRun(const Component* component) const {
    return hasBeenSet_ && component->getLastRun() < timestamp_;
}

void DataElement::registerWrite(DataWriter& writer, bool supplies) {
    writers_.push(&writer);
    if (supplies) suppliers_.push(&writer);
}

DataReader* DataElement::findReader(const Component* owner) const {
    return FindByOwner(readers_, owner);
}

DataWriter* DataElement::findWriter(const Component* owner) const {
    return FindByOwner(writers_, owner);
}

bool DataElement::isReadable() const {
    if (value_ != nullptr && isActive()) return true;
    UninitializedException::Report(*this);
    return false;
}

bool DataElement::get(DataValue& value) const {
    MutexLocker lock(mutex_);
    return isReadable() && value_->copyTo(value);
}

double DataElement::asDouble(const Unit& unit) const {
    double value = 0;
    return get(unit, value) ? value : std::numeric_limits<double>::quiet_NaN();
}

int DataElement::asInt(const Unit& unit) const {
    int value = 0;
    return get(unit, value) ? value : 0;
}

Str DataElement::asString(const Unit& unit) const {
    MutexLocker lock(mutex_);
    return isReadable() ? value_->toString(unit) : Str();
}

const DataElement& DataElement::ReadBy(const DataReader& reader) {
    return *reader.getElement();
}

bool DataElement::setBy(DataWriter* writer, const DataValue& value, const Timestamp& t) {
    MutexLocker lock(mutex_);
    return value_ != nullptr && wasSet(value_->setFrom(value), writer, t);
}

bool DataElement::setWithAccuracy(DataWriter& writer, const DataValue& value, float accuracy, const Timestamp& t) {
    MutexLocker lock(mutex_);
    setAccuracy(value.getUnit() == nullptr ? getUnit() : *value.getUnit(), accuracy);
    return set(writer, value, t);
}

bool DataElement::wasSet(bool changed, DataWriter* writer, const Timestamp& t) {
    notifier_ = writer;
    timestamp_ = t;
    hasBeenSet_ = true;
    invalid_ = false;
    if (universal_ != nullptr) universal_->follow(*this);
    return changed;
}

void DataElement::setAccuracy(const Unit& unit, float accuracy) {
    writtenAccuracy_ = static_cast<float>(unit.getSI(static_cast<double>(accuracy)) - unit.getSI(0.0));
}

float DataElement::Scaled(float accuracySI, const Unit& unit) {
    return static_cast<float>(unit.getScaled(static_cast<double>(accuracySI)) - unit.getScaled(0.0));
}

void DataElement::setCosts(float power, float latency, float frequency) {
    power_ = power;
    latency_ = latency;
    frequency_ = frequency;
}

bool DataElement::isBest() const {
    return universal_ == nullptr || universal_->getBest() == this;
}

bool UniversalDataElement::isOrphaned() const {
    return sources_.isEmpty();
}

bool UniversalDataElement::isOwnersActive() const {
    return findSource(&DataElement::isOwnersActive, true) != nullptr;
}

bool UniversalDataElement::isOwnersFailed() const {
    return !sources_.isEmpty() && findSource(&DataElement::isOwnersFailed, false) == nullptr;
}

const DataElement* UniversalDataElement::findSource(bool (DataElement::*question)() const, bool answer) const {
    for (unsigned int i = 0; i < sources_.size(); ++i) {
        if ((sources_.at(i)->*question)() == answer) return sources_.at(i);
    }
    return nullptr;
}

void UniversalDataElement::addSource(DataElement& source) {
    if (sources_.find(&source) < 0) sources_.push(&source);
    source.setUniversal(this);
}

DataElement* UniversalDataElement::getBest(DataAccessor::RequestStrategy strategy) const {
    DataElement* best = nullptr;
    for (unsigned int i = 0; i < sources_.size(); ++i) {
        DataElement* const source = sources_.at(i);
        if (!source->isActive()) continue;
        if (best == nullptr || IsCheaper(CostOf(*source, strategy), CostOf(*best, strategy))) best = source;
    }
    return best;
}

void UniversalDataElement::follow(const DataElement& source) {
    MutexLocker lock(mutex_);
    if (value_ == nullptr || source.getDataValue() == nullptr || getBest() != &source) return;
    writtenAccuracy_ = source.getBaseAccuracy();
    wasSet(value_->setFrom(*source.getDataValue()), source.getNotifier(), source.getTimestamp());
}
