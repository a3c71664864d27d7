#include "logger/writer/OutputDirectory.h"

#include "data/DataValue.h"
#include "data/Slate.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/writer/LogWriter.h"

OutputDirectory::OutputDirectory(int columnCount)
    : columnCount_(columnCount), columns_(new Column[columnCount]), components_(true) {}

OutputDirectory::~OutputDirectory() = default;

unsigned int OutputDirectory::describe(const Str& name, int column, const DataEntry& entry, const Unit* unit,
                                       LogWriter& output) {
    Column& described = columns_[column];
    if (described.written_) return 0;
    unsigned int bytes = 0;
    const auto write = [&](const DirectoryEntry& directoryEntry) { bytes += output.write(&directoryEntry, nullptr); };
    if (!wroteVersion_) write(DirectoryEntry(static_cast<short>(0)));
    wroteVersion_ = true;
    Component* component = componentOf(name);
    if (component != nullptr && !component->written_) {
        write(DirectoryEntry(&component->name_));
        component->written_ = true;
    }
    if (described.access_ == nullptr) make(described, column, name, component, entry, unit);
    write(DirectoryEntry(described.element_.get()));
    write(DirectoryEntry(described.access_.get()));
    described.written_ = true;
    return bytes;
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
    DataAccess* const access = columns_[column].access_.get();
    std::unique_ptr<DataValue> value = AsType(access->getBinaryType(), entry);
    if (value == nullptr) return nullptr;
    return std::make_unique<DataEntry>(access, value.release(), entry.getTimestamp(), entry.isBest(), true);
}

void OutputDirectory::reset() {
    wroteVersion_ = false;
    for (int i = 0; i < columnCount_; ++i) columns_[i].written_ = false;
    for (int i = 0; i <= components_.getMaxIndex(); ++i) components_.at(static_cast<unsigned int>(i))->written_ = false;
}

// The part of the name before its first '.'; null for a name without component.
OutputDirectory::Component* OutputDirectory::componentOf(const Str& name) {
    const size_t end = name.find('.');
    if (end == Str::NO_POS) return nullptr;
    const Str text = name.substr(0, end);
    const int count = components_.getMaxIndex() + 1;
    for (int i = 0; i < count; ++i) {
        Component* component = components_.at(static_cast<unsigned int>(i));
        if (component->name_ == text) return component;
    }
    components_.push(new Component(text, static_cast<unsigned short>(count)));
    return components_.at(static_cast<unsigned int>(count));
}

void OutputDirectory::make(Column& column, int index, const Str& name, const Component* component,
                           const DataEntry& entry, const Unit* unit) {
    const unsigned short code = static_cast<unsigned short>(index);
    const ElementURI* source = Slate::GetElementURI(entry.getElementCode());
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
