#include "logger/writer/json/JsonLogWriter.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "data/BlobValue.h"
#include "logger/entry/DataEntry.h"

JsonLogWriter::JsonLogWriter(bool formatted, const RequestedVariables& variables, const RequestedVariables& settings)
    : ArrayLogWriter(SHORTEST_FIRST, variables, settings),
      json_(new JsonDocument(formatted)),
      nodes_(new Node[requestCount()]) {}

unsigned int JsonLogWriter::writeHeader() {
    if (json_ != nullptr) json_->samples().setNeighbour(fileName());
    return 0;
}

unsigned int JsonLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (json_ == nullptr || !initializeFilterLogWriter()) return 0;
    initializeJsonLogWriter();
    return jsonLogWriterInitialized_ ? FilterLogWriter::write(entry, unit) : 0;
}

void JsonLogWriter::initializeJsonLogWriter() {
    if (placeRequests() && !json_->isEmpty()) jsonLogWriterInitialized_ = true;
    if (json_->samples().isRefused()) writeDocument();
}

bool JsonLogWriter::place(int request) {
    if (nodes_[request].leaf_ != nullptr) return true;
    const Unit* const unit = selectionOf(request).shownUnit(positionOf(request));
    if (unit != nullptr) addVar(request, *unit);
    return unit != nullptr || log_.isDirectoryRead();
}

void JsonLogWriter::addVar(int request, const Unit& unit) {
    nodes_[request].leaf_ = json_->addLeaf(nameOf(request), unit.getAbbreviation());
    nodes_[request].unit_ = &unit;
}

unsigned int JsonLogWriter::addSample(const DataEntry& entry, int request) {
    if (json_ == nullptr || nodes_[request].leaf_ == nullptr) return 0;
    JsonLeaf& leaf = *nodes_[request].leaf_;
    const PackedItems::State valuesBefore = leaf.values_.state();
    const PackedItems::State timesBefore = leaf.times_.state();
    if (!addValue(leaf, entry, request)) return 0;
    leaf.times_.addNumber(std::round(entry.getTimestamp().asDouble() * 1000));
    if (!json_->samples().isRefused()) return 0;
    leaf.values_.takeBack(valuesBefore);
    leaf.times_.takeBack(timesBefore);
    writeDocument();
    return 0;
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
bool JsonLogWriter::addValue(JsonLeaf& leaf, const DataEntry& entry, int request) {
    static const size_t NULL_TEXT = 5;  // bytes of an element that is missing
    const Unit& unit = *nodes_[request].unit_;
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
        const Shape shape(log_.getElementURI(selectionOf(request).code(positionOf(request))), blob->getCount());
        if (!padding_.admits(entry, shape.elements() * NULL_TEXT, shape.elements())) {
            padding_.report(fileName(), nameOf(request), log_.getLogger());
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
        variables_.printMissing([this](int index) { return nodes_[ownerOf(index)].leaf_ != nullptr; });
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
    ArrayLogWriter::resetInputs();
    if (json_ != nullptr) json_->forgetElements();
}
