#include "logger/entry/DataEntry.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

#include "data/BlobValue.h"
#include "data/DataAccess.h"
#include "data/DataAccessor.h"
#include "data/DataElement.h"
#include "data/Log.h"
#include "logger/entry/EntryStream.h"
#include "logger/entry/EntryText.h"
#include "logger/entry/KnownAccesses.h"
#include "logger/entry/TimeBounds.h"

RecyclingPool DataEntry::Pool_("DataEntry", sizeof(DataEntry));
const PoolDrain DataEntry::PoolDrain_(Pool_);

DataEntry::DataEntry(DataAccess* dataAccess, DataValue* dataValue, const Timestamp& t, bool best, bool changed,
                     Log& log)
    : LogEntry(DATA_LOG_ENTRY, t, log),
      dataAccess_(dataAccess),
      dataValue_(dataValue),
      best_(best),
      changed_(changed),
      ownsValue_(true) {}

DataEntry::DataEntry(DataAccessor* accessor, bool best, bool changed, const Timestamp& t, Log& log)
    : DataEntry(accessor->getDataAccess(), accessor->getElement()->getDataValue(), t, best, changed, log) {
    ownsValue_ = false;
}

DataEntry::DataEntry(const DataEntry& other)
    : LogEntry(other),
      dataAccess_(other.dataAccess_),
      dataValue_(other.dataValue_ == nullptr ? nullptr : other.dataValue_->copy()),
      best_(other.best_),
      changed_(other.changed_),
      ownsValue_(true) {}

DataEntry::DataEntry(const DataEntry& other, DataValue* value)
    : LogEntry(other),
      dataAccess_(other.dataAccess_),
      dataValue_(value),
      best_(other.best_),
      changed_(other.changed_),
      ownsValue_(false) {}

DataEntry::DataEntry(Log& log) : DataEntry(nullptr, nullptr, Timestamp::EPOCH_START_TIME, false, false, log) {
    ownsValue_ = false;
}

DataEntry::~DataEntry() {
    if (ownsValue_) delete dataValue_;
}

bool DataEntry::isDataWrite() const {
    return dataAccess_ != nullptr && dataAccess_->isWriter();
}

unsigned short DataEntry::getElementCode() const {
    return dataAccess_ == nullptr ? ElementURI::NO_CODE : dataAccess_->getElementCode();
}

unsigned short DataEntry::getUniversalCode() const {
    return dataAccess_ == nullptr ? ElementURI::NO_CODE : dataAccess_->getEffectiveUniversalCode();
}

unsigned short DataEntry::getBestCode() const {
    return best_ ? getUniversalCode() : ElementURI::NO_CODE;
}

// The first access from `first` up to but not including `end` that is typed and matches; null when there is none.
template <typename Matches>
static const DataAccess* FindTyped(const Log& log, unsigned int first, unsigned int end, Matches matches) {
    for (unsigned int code = first; code < end; ++code) {
        const DataAccess* candidate = log.getToldAccess(static_cast<unsigned short>(code));
        if (candidate != nullptr && candidate->isTyped() && matches(*candidate)) return candidate;
    }
    return nullptr;
}

// A sibling on the same element, preferably one declared later.
static const DataAccess* FindTypedSibling(const Log& log, const DataAccess& access) {
    const auto onSameElement = [&access](const DataAccess& other) {
        return other.getElementCode() == access.getElementCode();
    };
    const DataAccess* later = FindTyped(log, access.getCode() + 1u, log.getNextDataAccessCode(), onSameElement);
    return later != nullptr ? later : FindTyped(log, 0, access.getCode(), onSameElement);
}

// An access that supplies the universal which this one stands for itself.
static const DataAccess* FindTypedSupplier(const Log& log, const DataAccess& access) {
    return FindTyped(log, 0, log.getNextDataAccessCode(), [&access](const DataAccess& other) {
        return other.getUniversalCode() == access.getElementCode();
    });
}

// An access that was declared without type takes unit, type and size from a related one. A search that failed is not
// repeated while nothing new is known, or a log of many such accesses would be searched through for each of its
// entries.
static void InheritType(Log& log, DataAccess& access) {
    if (access.getTypesSeen() == log.countTypes()) return;
    access.setTypesSeen(log.countTypes());
    const DataAccess* related = nullptr;
    if (access.getUniversalCode() == ElementURI::NO_CODE) related = FindTypedSibling(log, access);
    if (access.getUniversalCode() == ElementURI::SELF_CODE) related = FindTypedSupplier(log, access);
    if (related == nullptr) return;
    access.copyUnitsTypeAndSizeFrom(related);
    log.countInheritedType();
}

static DataAccess* FindAccess(Log& log, unsigned short code, InStream& in, const Logger& logger) {
    DataAccess* access = log.getToldAccess(code);
    if (access == nullptr) {
        logger.syslog("No DataAccessor found for code 0x", code, Syslog::ERROR);
        EntryStream::LogPosition(logger, in);
        return nullptr;
    }
    if (access->isUntyped()) InheritType(log, *access);
    return access;
}

// The access's element, made when its first value comes; null, with a message, when the log does not name it.
static DataElement* FindElement(Log& log, const DataAccess& access, const Logger& logger, LogEntry::Values values) {
    const unsigned short code = access.getElementCode();
    DataElement* element = log.getElement(code);
    if (element != nullptr) return element;
    const ElementURI* uri = log.getElementURI(code);
    if (uri == nullptr) {
        logger.syslog("Could not find Element with code 0x", code, Syslog::ERROR);
        return nullptr;
    }
    if (values == LogEntry::SKIP_VALUES) return nullptr;
    return log.newDataElement(*uri, nullptr, access.unitOrNone(), access.getBinaryType(), DataElement::NO_ACCURACY);
}

static DataValue* NewValue(const DataAccess& access, const DataElement* element) {
    if (access.getBinaryType() == STRVALUE && element != nullptr && element->getUri().getBlobType() != NOT_BLOB) {
        BlobValue* blob = new BlobValue(element->getUri());
        blob->setUnit(access.unitOrNone());
        return blob;
    }
    return access.unitOrNone().dataValue(access.getBinaryType());
}

// The element's value where it can take the bytes itself: of the access's class and unit. Null where it cannot.
static DataValue* ReusableValue(const DataAccess& access, const DataElement* element) {
    DataValue* value = element == nullptr ? nullptr : element->getDataValue();
    return value != nullptr && value->isOf(access.getBinaryType(), access.unitOrNone()) ? value : nullptr;
}

// Moves the value's bytes from the stream into the value; without a value they are passed over.
static bool ReadBytes(const DataAccess& access, InStream& in, DataValue* value) {
    char room[std::numeric_limits<unsigned short>::max()];
    memset(room, 0, sizeof(double));  // what the widest number reads, however few bytes the access declares
    const DataForm form(access);
    unsigned short size = 0;
    const char* const bytes = form.takeValue(size, in, room);
    if (bytes != nullptr && value != nullptr) form.store(*value, bytes, size);
    return bytes != nullptr;
}

// The value that follows a changed entry's time: the element's own or one for the caller to own; null when it is only
// passed over. False, with a message, when it cannot be had.
static bool ReadValue(const DataAccess& access, const DataElement* element, InStream& in, const Logger& logger,
                      bool& error, LogEntry::Values values, DataValue*& value) {
    if (access.isUntyped()) {
        logger.syslog("No type known for data access 0x", access.getCode(), Syslog::ERROR);
        error = true;
        return false;
    }
    const bool stored = values == LogEntry::STORE_VALUES;
    DataValue* const held = stored ? ReusableValue(access, element) : nullptr;
    std::unique_ptr<DataValue> made(stored && held == nullptr ? NewValue(access, element) : nullptr);
    if (!ReadBytes(access, in, held != nullptr ? held : made.get())) {
        return EntryStream::Fail(logger, in, "End of Binary File Reached while reading DataEntry DataValue");
    }
    value = held != nullptr ? held : made.release();
    return true;
}

// The log has changed the meaning of the entry's codes: what the element holds is old, and what it gets is not known.
static void ForgetValue(const Log& log, const DataAccess& access) {
    DataElement* const element = log.getElement(access.getElementCode());
    if (element != nullptr) element->setDataValue(nullptr);
}

DataEntry* DataEntry::Read(Timestamp& timeBase, InStream& in, unsigned short header, const Logger& logger, bool& error,
                           Values values, Log& log) {
    DataAccess* access = FindAccess(log, static_cast<unsigned short>(header >> CODE_SHIFT), in, logger);
    if (access == nullptr) {
        error = true;
        return nullptr;
    }
    Timestamp t = timeBase;
    bool changed = false;
    if (!ReadTimestamp(t, changed, in, logger, access->getTimePrecision(), log)) return nullptr;
    const bool isRetold = log.isAnythingRetold() && log.isRetold(*access);
    if (isRetold) values = SKIP_VALUES;
    DataElement* element = isRetold ? nullptr : FindElement(log, *access, logger, values);
    DataValue* value = nullptr;
    if (changed && !ReadValue(*access, element, in, logger, error, values, value)) return nullptr;
    if (isRetold) {
        if (changed) ForgetValue(log, *access);
        return nullptr;
    }
    DataEntry* entry =
        new DataEntry(access, value, Timestamp::EPOCH_START_TIME, (header & BEST_MASK) != 0, changed, log);
    entry->setTimestamp(t);
    if (element != nullptr && values == STORE_VALUES) entry->shareValueWith(*element);
    return entry;
}

// Gives the element the value whose bytes come next: the one that it has, unless another access has left one of another
// class or unit. False, and nothing has changed, where the bytes cannot be taken as they are.
static bool Fill(const KnownAccess& known, ByteCursor& from, const Timestamp& t) {
    unsigned short size = 0;
    const char* const bytes = known.unit_ == nullptr ? nullptr : known.form_.takeValue(size, from);
    if (bytes == nullptr) return false;
    DataValue* const held = known.valueToFill();
    DataValue* const value = held != nullptr ? held : NewValue(*known.access_, known.element_);
    known.form_.store(*value, bytes, size);
    known.element_->setDataValue(value);
    known.element_->setTimestamp(t);
    return true;
}

bool DataEntry::take(const KnownAccess& known, unsigned short header, ByteCursor& from, const Timestamp& timeBase) {
    Timestamp t = timeBase;
    bool changed = false;
    if (!known.form_.takeTime(t, changed, from, log_->version().timesHaveFlag()) || !TimeBounds::Holds(t)) return false;
    if (changed && !Fill(known, from, t)) return false;
    dataAccess_ = known.access_;
    dataValue_ = known.element_->getDataValue();
    best_ = (header & BEST_MASK) != 0;
    changed_ = changed;
    timestamp_ = t;
    return true;
}

// Passes so many bytes on and drops the others.
class ClippedStream final : public OutStream {
public:
    ClippedStream(OutStream& out, size_t size) : out_(out), left_(size) {}
    using OutStream::write;
    OutStream& write(const char* buf, size_t n) override {
        const size_t kept = std::min(n, left_);
        lastWritten_ = out_.write(buf, kept).bytesWritten();
        left_ -= kept;
        return *this;
    }
    bool isWritable() override { return out_.isWritable(); }
    size_t left() const { return left_; }

private:
    OutStream& out_;  // borrowed
    size_t left_;     // bytes still to come
};

// As many bytes as the access declares, which need not be what the value's class takes: readers go by the access. The
// bytes that the value did not get from the log, or does not use, are zero.
static size_t WriteDeclaredSize(const DataAccess& access, const DataValue& value, OutStream& out) {
    const size_t size = access.getTypeSize();
    ClippedStream clipped(out, size);
    value.toStream(clipped);
    while (clipped.left() > 0) clipped << '\0';
    return size;
}

static bool HasDeclaredSize(const DataAccess& access, const DataValue& value) {
    return access.getBinaryType() == STRVALUE || access.isUntyped() || access.getTypeSize() == value.getTypeSize();
}

static size_t WriteBytes(const DataAccess& access, const DataValue& value, OutStream& out) {
    return HasDeclaredSize(access, value) ? value.toStream(out) : WriteDeclaredSize(access, value, out);
}

// A reader of a standard quantity passes on the value of whatever supplies it, but the log is read by the type that the
// access tells. A value that has no such form goes as the empty one of the type.
static size_t WriteValue(Log& log, DataAccess& access, const DataValue& value, OutStream& out) {
    if (access.isUntyped()) InheritType(log, access);
    const BinaryDataType type = access.getBinaryType();
    if (type == value.getBinaryType() || type == NO_TYPE) return WriteBytes(access, value, out);
    const std::unique_ptr<DataValue> declared(access.unitOrNone().dataValue(type));
    if (declared->getBinaryType() != type) return WriteBytes(access, value, out);  // it is a type that no class has
    declared->setFrom(value);
    return WriteBytes(access, *declared, out);
}

unsigned int DataEntry::write(Timestamp& timeBase, OutStream& out) const {
    if (dataValue_ == nullptr || dataAccess_->getCode() > MAX_CODE) return 0;
    const bool withValue = changed_ || !log_->version().timesHaveFlag();
    const int header = DATA_LOG_ENTRY | (best_ ? BEST_MASK : 0) | dataAccess_->getCode() << CODE_SHIFT;
    size_t n = EntryStream::WriteCompact(out, static_cast<unsigned short>(header));
    n += writeTimestamp(timeBase, withValue, out, dataAccess_->getTimePrecision());
    if (withValue) n += WriteValue(*log_, *dataAccess_, *dataValue_, out);
    return static_cast<unsigned int>(n);
}

// A new value becomes the element's current one; without one the entry repeats what the element holds.
void DataEntry::shareValueWith(DataElement& element) {
    if (changed_) {
        element.setDataValue(dataValue_);
        element.setTimestamp(timestamp_);
    }
    dataValue_ = element.getDataValue();
    ownsValue_ = false;
}

const Unit& DataEntry::displayUnit(const Unit* unit) const {
    if (unit != nullptr) return *unit;
    const Unit* accessUnit = dataAccess_ == nullptr ? nullptr : dataAccess_->getUnit();
    const bool fits = accessUnit != nullptr && (dataValue_ == nullptr || dataValue_->fits(*accessUnit));
    return fits ? *accessUnit : valueUnit();
}

double DataEntry::getNumber(const Unit& unit) const {
    double number = 0;
    return dataValue_ != nullptr && dataValue_->copyTo(unit, number) ? number : std::nan("");
}

void DataEntry::setNumber(const Unit& unit, double number) {
    const bool hasUnit = dataValue_ != nullptr && dataValue_->getUnit() != nullptr;
    const Unit& ownUnit = hasUnit ? *dataValue_->getUnit() : unit;
    std::unique_ptr<DataValue> value(dataValue_ != nullptr ? dataValue_->copy() : ownUnit.dataValue(DOUBLE8));
    value->setFrom(unit, number);
    const bool isText = value->getBinaryType() == STRVALUE;
    if (isText || (std::isnan(number) && !value->isNaN())) {
        value.reset(ownUnit.dataValue(DOUBLE8));
        value->setFrom(unit, number);
    }
    if (ownsValue_) delete dataValue_;
    dataValue_ = value.release();
    ownsValue_ = true;
}

void DataEntry::appendValue(TextBuffer& text, const Unit* unit, bool hideUnit) const {
    if (dataValue_ == nullptr) {
        text.append("NULL");
        return;
    }
    const Unit& shown = displayUnit(unit);
    dataValue_->appendTo(text, shown);
    if (isNumber() && !hideUnit) text.append(' ').append(shown.getAbbreviation(), shown.getAbbreviationLength());
}

Str DataEntry::getDataValueString(const Unit* unit, bool hideUnit) const {
    TextBuffer text;
    appendValue(text, unit, hideUnit);
    return text.toStr();
}

void DataEntry::appendTo(TextBuffer& text, const Unit* unit) const {
    const bool inMillis = dataAccess_->getTimePrecision() == Logger::TIME_PRECISION_MILLIS;
    EntryText::AppendStamp(text, timestamp_, inMillis ? 3 : 6);
    dataAccess_->appendLabel(text, *log_, best_, UNKNOWN);
    appendValue(text, unit, false);
}
