#include "logger/writer/json/JsonLogWriter.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <numeric>

#include "data/BlobValue.h"
#include "logger/entry/DataEntry.h"

JsonLogWriter::JsonLogWriter(bool formatted, int varCount, char** varList, char** unitList, int attCount,
                             char** attList)
    : FilterLogWriter(nullptr, varCount, varList, unitList, false, attCount, attList),
      json_(new JsonDocument(formatted)),
      nodes_(new Node[requestCount()]),
      shortestFirst_(new int[requestCount()]) {
    std::iota(&shortestFirst_[0], &shortestFirst_[requestCount()], 0);
    std::stable_sort(&shortestFirst_[0], &shortestFirst_[requestCount()],
                     [this](int a, int b) { return strlen(nameOf(a)) < strlen(nameOf(b)); });
}

unsigned int JsonLogWriter::writeHeader() {
    if (json_ != nullptr) json_->samples().setNeighbour(fileName());
    return 0;
}

unsigned int JsonLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (!initializeFilterLogWriter()) return 0;
    if (json_ == nullptr) return 0;
    if (watch_.hasChanged()) initializeJsonLogWriter();
    return jsonLogWriterInitialized_ ? FilterLogWriter::write(entry, unit) : 0;
}

// A name that is the beginning of another becomes an object first, and the other's part stands behind its members.
void JsonLogWriter::initializeJsonLogWriter() {
    watch_.look();
    bool isComplete = true;
    for (int i = 0; i < requestCount(); ++i) isComplete = place(shortestFirst_[i]) && isComplete;
    if (isComplete && !json_->isEmpty()) jsonLogWriterInitialized_ = true;
    if (json_->samples().isRefused()) writeDocument();
}

// Requests of one name share what the first of them has; a setting that is also a variable is written as that.
bool JsonLogWriter::place(int index) {
    const int owner = ownerOf(index);
    if (owner < 0) return true;
    if (owner == index) return nodes_[index].leaf_ != nullptr || placeFirst(index);
    nodes_[index] = nodes_[owner];
    return true;
}

bool JsonLogWriter::placeFirst(int index) {
    const VariableSelection& selection = selectionOf(index);
    const int position = positionOf(index);
    const Unit* const unit = selection.shownUnit(position);
    if (unit != nullptr) addVar(index, *unit);
    return unit != nullptr || log_.isDirectoryRead();
}

void JsonLogWriter::addVar(int index, const Unit& unit) {
    nodes_[index].leaf_ = json_->addLeaf(nameOf(index), unit.getAbbreviation());
    nodes_[index].unit_ = &unit;
}

unsigned int JsonLogWriter::writeData(const DataEntry* entry, int varIndex, const Unit*) {
    if (entry == nullptr || json_ == nullptr || nodes_[varIndex].leaf_ == nullptr) return 0;
    JsonLeaf& leaf = *nodes_[varIndex].leaf_;
    const PackedItems::State valuesBefore = leaf.values_.state();
    const PackedItems::State timesBefore = leaf.times_.state();
    if (!addValue(leaf, *entry, varIndex)) return 0;
    leaf.times_.addNumber(std::round(entry->getTimestamp().asDouble() * 1000));
    if (!json_->samples().isRefused()) return 0;
    leaf.values_.takeBack(valuesBefore);
    leaf.times_.takeBack(timesBefore);
    writeDocument();
    return 0;
}

unsigned int JsonLogWriter::writeAtt(const DataEntry* entry, int attIndex, const Unit* unit) {
    return writeData(entry, variables_.count() + attIndex, unit);
}

// Nested arrays of the lengths, from an element of the blob on; elements past its end are null. The result is the
// element that is next.
static size_t AddBlob(PackedItems& values, const BlobValue& blob, const Unit& unit, const size_t* lengths, int rank,
                      size_t next) {
    const auto addPart = [&] {
        if (rank > 1) return AddBlob(values, blob, unit, lengths + 1, rank - 1, next);
        double number = 0;
        blob.get(next, unit, number);
        values.addNumber(number);
        return next + 1;
    };
    size_t left = *lengths;
    values.beginArray();
    for (; left > 0 && next < blob.getCount(); --left) next = addPart();
    if (left > 0) {
        const PackedItems::State begin = values.beginPiece();
        next = addPart();
        values.addAgain(values.endPiece(begin), left - 1);
    }
    values.endArray();
    return next;
}

// False for a sample that is left out.
bool JsonLogWriter::addValue(JsonLeaf& leaf, const DataEntry& entry, int index) {
    static const size_t NULL_TEXT = 5;  // bytes of an element that is missing
    const Unit& unit = *nodes_[index].unit_;
    const DataValue* const value = entry.getDataValue();
    if (value == nullptr || value->getBinaryType() != STRVALUE) {
        leaf.values_.addNumber(entry.getNumber(unit));
        return true;
    }
    const BlobValue* const blob = dynamic_cast<const BlobValue*>(value);
    if (blob == nullptr) {
        const StrValue& text = static_cast<const StrValue&>(*value);
        leaf.addOnce(entry.getElementCode(), text, [&] { leaf.values_.addString(text.getValue()); });
    } else {
        const Shape shape(log_.getElementURI(selectionOf(index).code(positionOf(index))), blob->getCount());
        if (!padding_.admits(entry, shape.elements() * NULL_TEXT, shape.elements())) {
            padding_.report(fileName(), nameOf(index));
            return false;
        }
        leaf.addOnce(entry.getElementCode(), *blob,
                     [&] { AddBlob(leaf.values_, *blob, unit, shape.lengths_, shape.rank_, 0); });
    }
    return true;
}

// The outermost length may be open: then the array has as many parts as its elements fill.
JsonLogWriter::Shape::Shape(const ElementURI* name, size_t elementCount) {
    if (name != nullptr) {
        lengths_[0] = name->getDimension1();
        lengths_[1] = name->getDimension2();
        lengths_[2] = name->getDimension3();
    }
    rank_ = lengths_[2] != 0 ? 3 : lengths_[1] != 0 ? 2 : 1;
    if (lengths_[0] == 0 && part() > 0) lengths_[0] = (elementCount + part() - 1) / part();
}

unsigned int JsonLogWriter::writeFooter() {
    if (wroteFooter_) return 0;
    wroteFooter_ = true;
    if (!jsonLogWriterInitialized_) {
        puts("No Json file written");
        variables_.printMissing([this](int index) { return nodes_[index].leaf_ != nullptr; });
    } else {
        writeDocument();
    }
    return 0;
}

void JsonLogWriter::writeDocument() {
    if (json_ == nullptr) return;
    if (isValid()) json_->write(*logStream_);
    if (!json_->failure().isEmpty()) {
        isWhole_ = false;
        log_.getLogger().fileFailure("write", fileName(), json_->failure().cStr());
    }
    json_.reset();
}

void JsonLogWriter::freeMemory() {
    if (json_ != nullptr && !json_->samples().moveToFile()) writeDocument();
}

void JsonLogWriter::resetInputs() {
    FilterLogWriter::resetInputs();
    if (json_ != nullptr) json_->forgetElements();
    watch_.reset();
}
