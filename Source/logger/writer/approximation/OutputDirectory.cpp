#include "logger/writer/approximation/OutputDirectory.h"

#include <utility>

#include "data/DataValue.h"
#include "logger/engine/LogWriter.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/entry/SyslogEntry.h"

OutputDirectory::OutputDirectory(int columnCount, Log& log)
    : log_(log), chosenCount_(columnCount), columns_(true), components_(true) {
    for (int i = 0; i < columnCount; ++i) columns_.push(new Column);
}

OutputDirectory::~OutputDirectory() = default;

int OutputDirectory::columnBehind(const Str& name) {
    const int count = columns_.getMaxIndex() + 1;
    for (int i = chosenCount_; i < count; ++i) {
        if (*columns_.at(static_cast<unsigned int>(i))->element_ == name) return i;
    }
    columns_.push(new Column);
    return count;
}

unsigned int OutputDirectory::writeVersion(LogWriter& output) {
    if (std::exchange(wroteVersion_, true)) return 0;
    const DirectoryEntry version(static_cast<short>(0), log_);
    return output.write(&version, nullptr);
}

unsigned int OutputDirectory::writeName(Component& component, LogWriter& output) {
    if (std::exchange(component.written_, true)) return 0;
    const DirectoryEntry name(&component.name_, log_);
    return output.write(&name, nullptr);
}

unsigned int OutputDirectory::describe(const SyslogEntry& entry, LogWriter& output) {
    const unsigned int bytes = writeVersion(output);
    return bytes + writeName(*componentCalled(entry.getLoggerFacility()), output);
}

std::unique_ptr<SyslogEntry> OutputDirectory::translated(const SyslogEntry& entry) {
    const CodedStr& facility = componentCalled(entry.getLoggerFacility())->name_;
    return std::make_unique<SyslogEntry>(entry.getMessage(), entry.getSeverity(), facility, entry.getTimestamp(), log_);
}

unsigned int OutputDirectory::describe(const Str& name, int column, const DataEntry& entry, const Unit* unit,
                                       LogWriter& output) {
    Column& described = *columns_.at(static_cast<unsigned int>(column));
    if (std::exchange(described.written_, true)) return 0;
    unsigned int bytes = writeVersion(output);
    Component* const component = componentOf(name);
    if (component != nullptr) bytes += writeName(*component, output);
    if (described.access_ == nullptr) make(described, column, name, component, entry, unit);
    const DirectoryEntry element(described.element_.get(), log_);
    const DirectoryEntry access(described.access_.get(), log_);
    bytes += output.write(&element, nullptr);
    return bytes + output.write(&access, nullptr);
}

// The value as one of the type; null when it has no such form.
static std::unique_ptr<DataValue> AsType(BinaryDataType type, const DataEntry& entry) {
    const DataValue& value = *entry.getDataValue();
    if (value.getBinaryType() == type) return std::unique_ptr<DataValue>(value.copy());
    if (type == STRVALUE || !entry.isNumber()) return nullptr;
    const Unit& base = value.getBaseUnit();
    std::unique_ptr<DataValue> number(base.dataValue(entry.getNumber(base), type));
    return number->isNaN() == value.isNaN() ? std::move(number) : nullptr;
}

// Another type than the access declares would put the reader out of step, and so would an entry without its value.
std::unique_ptr<DataEntry> OutputDirectory::translated(const DataEntry& entry, int column) const {
    DataAccess* const access = columns_.at(static_cast<unsigned int>(column))->access_.get();
    std::unique_ptr<DataValue> value = AsType(access->getBinaryType(), entry);
    if (value == nullptr) return nullptr;
    return std::make_unique<DataEntry>(access, value.release(), entry.getTimestamp(), entry.isBest(), true, log_);
}

void OutputDirectory::reset() {
    wroteVersion_ = false;
    for (unsigned int i = 0; i < columns_.size(); ++i) columns_.at(i)->written_ = false;
    for (unsigned int i = 0; i < components_.size(); ++i) components_.at(i)->written_ = false;
}

// The part of the name before its first '.'; null for a name without component.
OutputDirectory::Component* OutputDirectory::componentOf(const Str& name) {
    const size_t end = name.find('.');
    return end == Str::NO_POS ? nullptr : componentCalled(name.substr(0, end));
}

OutputDirectory::Component* OutputDirectory::componentCalled(const Str& text) {
    const unsigned int count = components_.size();
    for (unsigned int i = 0; i < count; ++i) {
        if (components_.at(i)->name_ == text) return components_.at(i);
    }
    components_.push(new Component(text, static_cast<unsigned short>(count)));
    return components_.at(count);
}

void OutputDirectory::make(Column& column, int index, const Str& name, const Component* component,
                           const DataEntry& entry, const Unit* unit) {
    const unsigned short code = static_cast<unsigned short>(index);
    const ElementURI* source = log_.getElementURI(entry.getElementCode());
    const DataValue& value = *entry.getDataValue();
    const Unit& shown = entry.displayUnit(unit);
    column.element_.reset(source == nullptr
                              ? new ElementURI(code, name, ElementURI::DATA_ELEMENT, shown)
                              : new ElementURI(code, name, source->getElementType(), shown, source->getBinaryType(),
                                               source->getBlobType(), source->getDimension1(), source->getDimension2(),
                                               source->getDimension3()));
    column.access_.reset(new DataAccess(
        component == nullptr ? CodedStr::NO_CODE : component->name_.getCode(), code, DataAccess::NO_CODE, shown,
        value.getBinaryType(), static_cast<unsigned short>(value.getTypeSize()), code, DataAccessor::DATA_WRITER));
    column.access_->setNoInterpFlag(entry.getDataAccess()->getNoInterpFlag());
}
