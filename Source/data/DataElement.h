#pragma once

#include <limits>

#include "data/DataAccessor.h"
#include "data/DataValue.h"
#include "data/ElementURI.h"
#include "utils/FlexArray.h"
#include "utils/Mutex.h"
#include "utils/Timestamp.h"

class Component;
class DataReader;
class DataWriter;
class UniversalDataElement;

// The current value of one named datum, with its time, its accuracy and the readers and writers attached to it.
// The value may be read through a reader while the element is active: it has been set, is neither unavailable nor
// invalid, and a component that supplies it is active.
// Threads: set and get hold the element's own lock; the log's reader, alone on its thread, goes straight to the value.
class DataElement {
public:
    static constexpr float NO_ACCURACY = std::numeric_limits<float>::quiet_NaN();

    // What a read of an element that is not active reports, through the current log's logger; nothing is thrown.
    struct UninitializedException {
        static const char* const MESSAGE;
        static void Report(const DataElement& element);  // one ERROR: "Depth.depth: data element is not active."
    };

    // Takes the value over; without one (null) there is nothing to set or get. The accuracy is in the base unit.
    DataElement(const ElementURI& uri, DataValue* value, float accuracy);
    virtual ~DataElement() { delete value_; }
    DataElement(const DataElement&) = delete;
    DataElement& operator=(const DataElement&) = delete;

    const ElementURI& getUri() const { return name_; }
    void setCode(unsigned short code) { name_.setCode(code); }  // the log's, when the name gets it
    DataValue* getDataValue() const { return value_; }          // owned by the element
    // Replaces the value by one that the element owns from now on.
    void setDataValue(DataValue* value) {
        if (value != value_) delete value_;
        value_ = value;
        hasBeenSet_ = true;
    }
    const Timestamp& getTimestamp() const { return timestamp_; }  // of the last set; NOT_SET_TIME before
    void setTimestamp(const Timestamp& t) { timestamp_ = t; }
    bool hasBeenSet() const { return hasBeenSet_; }  // or given a value object, as a log's reader does
    bool hasValue() const { return hasBeenSet_ && value_ != nullptr; }

    const Unit& getUnit() const;  // the value's, failing that the name's
    const Unit& getBaseUnit() const {
        return value_ == nullptr && baseUnit_ != nullptr ? *baseUnit_ : getUnit().getBaseUnit();
    }
    size_t getTypeSize() const { return value_ == nullptr ? typeSize_ : value_->getTypeSize(); }  // bytes in the log
    // What is known of an element that has no value yet; a value tells its own.
    void setBaseUnit(const Unit& unit) { baseUnit_ = &unit.getBaseUnit(); }
    void setTypeSize(size_t typeSize) { typeSize_ = typeSize; }
    BinaryDataType getBinaryType() const { return value_ == nullptr ? NO_TYPE : value_->getBinaryType(); }

    bool isUnavailable() const { return unavailable_; }  // its device cannot deliver it now
    bool isInvalid() const { return invalid_; }          // its last value is not to be trusted
    void setUnavailable(bool unavailable) { unavailable_ = unavailable; }
    void setInvalid(bool invalid) { invalid_ = invalid; }  // a set makes it valid again
    virtual bool isOrphaned() const;                       // no component supplies it
    virtual bool isOwnersActive() const;                   // of the components that supply it, one is active
    virtual bool isOwnersFailed() const;                   // there are some, and all have failed
    bool isActivatable() const { return !unavailable_ && !isOrphaned() && !isOwnersFailed(); }  // it may become active
    virtual bool isActive() const;                                                              // it can be read
    virtual bool isUniversal() const { return false; }
    // Set since the component (not null) last ran; at any time when it never did.
    bool wasTouchedSinceLastRun(const Component* component) const;

    // Attachments; borrowed, and none is ever taken off. A writer that supplies the element makes it one that is not
    // orphaned.
    void registerRead(DataReader& reader) { readers_.push(&reader); }
    void registerWrite(DataWriter& writer, bool supplies);
    DataReader* findReader(const Component* owner) const;  // the component's first; null when it has none
    DataWriter* findWriter(const Component* owner) const;
    unsigned int readerCount() const { return readers_.size(); }
    unsigned int writerCount() const { return writers_.size(); }

    // The value in the unit: T is bool, unsigned char, int, float or double. False, with a report, while the element is
    // not active; false too when the unit does not fit.
    template <typename T>
    bool get(const Unit& unit, T& value) const {
        MutexLocker lock(mutex_);
        return isReadable() && value_->copyTo(unit, value);
    }
    bool get(DataValue& value) const;         // into the other's own type and base unit
    double asDouble(const Unit& unit) const;  // NaN where get is false
    int asInt(const Unit& unit) const;        // 0 where get is false
    Str asString(const Unit& unit) const;     // "1.500000"; empty while not active, "nan" when the unit does not fit

    // What one of its readers reads: of a universal, the value of the source that this reader prefers.
    template <typename T>
    bool get(const DataReader& reader, const Unit& unit, T& value) const {
        return ReadBy(reader).get(unit, value);
    }
    bool get(const DataReader& reader, DataValue& value) const { return ReadBy(reader).get(value); }
    double asDouble(const DataReader& reader, const Unit& unit) const { return ReadBy(reader).asDouble(unit); }
    int asInt(const DataReader& reader, const Unit& unit) const { return ReadBy(reader).asInt(unit); }
    Str asString(const DataReader& reader, const Unit& unit) const { return ReadBy(reader).asString(unit); }

    // Stores a value given in the unit, where T is as for get; true when what reaches the log changed. The time is
    // taken over either way, a universal that this is the best source of follows, and there is no notifier.
    template <typename T>
    bool set(const Unit& unit, const T& value, const Timestamp& t) {
        return setBy(nullptr, unit, value, t);
    }
    bool set(const DataValue& value, const Timestamp& t) { return setBy(nullptr, value, t); }
    template <typename T>
    bool setWithAccuracy(const Unit& unit, const T& value, float accuracy, const Timestamp& t) {
        MutexLocker lock(mutex_);
        setAccuracy(unit, accuracy);
        return set(unit, value, t);
    }

    // The same by one of its writers, which is the notifier from then on.
    template <typename T>
    bool set(DataWriter& writer, const Unit& unit, const T& value, const Timestamp& t) {
        return setBy(&writer, unit, value, t);
    }
    bool set(DataWriter& writer, const DataValue& value, const Timestamp& t) { return setBy(&writer, value, t); }
    template <typename T>
    bool setWithAccuracy(DataWriter& writer, const Unit& unit, const T& value, float accuracy, const Timestamp& t) {
        MutexLocker lock(mutex_);
        setAccuracy(unit, accuracy);
        return set(writer, unit, value, t);
    }
    // The accuracy is in the unit of the value.
    bool setWithAccuracy(DataWriter& writer, const DataValue& value, float accuracy, const Timestamp& t);
    DataWriter* getNotifier() const { return notifier_; }  // the writer of the last set; null when it was none of them

    // Accuracies are differences: converted by the unit's factor alone. NO_ACCURACY when not known.
    void setAccuracy(const Unit& unit, float accuracy);
    void setAccuracy(DataWriter&, const Unit& unit, float accuracy) { setAccuracy(unit, accuracy); }
    float getAccuracy(const Unit& unit) const { return Scaled(getAccuracySI(), unit); }  // as it can be read now
    float getAccuracySI() const { return isActive() ? writtenAccuracy_ : NO_ACCURACY; }  // in the base unit
    float getWrittenAccuracy(const Unit& unit) const { return Scaled(writtenAccuracy_, unit); }  // as last written
    float getBaseAccuracy() const { return writtenAccuracy_; }  // likewise, in the base unit

    // The universal that this element feeds; null when none.
    UniversalDataElement* getUniversal() const { return universal_; }
    void setUniversal(UniversalDataElement* universal) { universal_ = universal; }  // addSource does it; borrowed
    bool isBest() const;  // nothing better supplies its universal; true without one

    // What the supplying device costs, for the choice among the elements that feed one universal; NaN when not known.
    float getPower() const { return power_; }                    // W
    float getError() const { return writtenAccuracy_; }          // base unit
    float getLatency() const { return latency_; }                // s
    float getFrequency() const { return frequency_; }            // Hz
    void setCosts(float power, float latency, float frequency);  // W, s, Hz

protected:
    bool isReadable() const;
    // What a set leaves behind; changed is handed on. The writer may be null.
    bool wasSet(bool changed, DataWriter* writer, const Timestamp& t);
    static float Scaled(float accuracySI, const Unit& unit);

    ElementURI name_;
    UniversalDataElement* universal_ = nullptr;  // owned by the log
    DataWriter* notifier_ = nullptr;             // borrowed
    FlexArray<DataWriter*> writers_;             // borrowed
    FlexArray<DataWriter*> suppliers_;           // those of them that supply the element
    FlexArray<DataReader*> readers_;             // borrowed
    bool unavailable_ = false;
    bool invalid_ = false;
    mutable Mutex mutex_;
    float writtenAccuracy_;  // base unit
    Timestamp timestamp_ = Timestamp::NOT_SET_TIME;
    bool hasBeenSet_ = false;
    const Unit* baseUnit_ = nullptr;  // while there is no value; a constant of the process
    size_t typeSize_ = 0;             // likewise
    DataValue* value_;                // owned; null when its type is unknown
    float power_ = NO_ACCURACY;
    float latency_ = NO_ACCURACY;
    float frequency_ = NO_ACCURACY;

private:
    static const DataElement& ReadBy(const DataReader& reader);
    template <typename T>
    bool setBy(DataWriter* writer, const Unit& unit, const T& value, const Timestamp& t) {
        MutexLocker lock(mutex_);
        return value_ != nullptr && wasSet(value_->setFrom(unit, value), writer, t);
    }
    bool setBy(DataWriter* writer, const DataValue& value, const Timestamp& t);
};

// A component's datum.
class SimpleDataElement final : public DataElement {
public:
    using DataElement::DataElement;
};

// A datum that the configuration fixes: it needs no component to supply it.
class ConfigDataElement final : public DataElement {
public:
    using DataElement::DataElement;

    bool isOrphaned() const override { return false; }
    bool isOwnersActive() const override { return true; }
    bool isOwnersFailed() const override { return false; }
};

// A standard quantity: it follows the best of the elements that feed it.
class UniversalDataElement final : public DataElement {
public:
    using DataElement::DataElement;

    bool isUniversal() const override { return true; }
    bool isOrphaned() const override;
    bool isOwnersActive() const override;
    bool isOwnersFailed() const override;

    void addSource(DataElement& source);  // borrowed; it feeds this one from now on. Once is enough
    unsigned int sourceCount() const { return sources_.size(); }
    // Of the active sources the one that the strategy prefers, the earlier of equals; null when none is active.
    // MIN_ERROR is what the universal itself follows.
    DataElement* getBest(DataAccessor::RequestStrategy strategy = DataAccessor::MIN_ERROR) const;
    void follow(const DataElement& source);  // takes the source's value when it is the best

private:
    // The first source for which the question has the answer; null when none.
    const DataElement* findSource(bool (DataElement::*question)() const, bool answer) const;

    FlexArray<DataElement*> sources_;  // borrowed
};
