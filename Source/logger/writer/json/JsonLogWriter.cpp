#include "logger/writer/json/JsonLogWriter.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "data/BlobValue.h"
#include "logger/entry/DataEntry.h"

JsonLogWriter::JsonLogWriter(bool formatted, int varCount, char** varList, char** unitList, int attCount,
                             char** attList)
    : ArrayLogWriter(SHORTEST_FIRST, varCount, varList, unitList, attCount, attList),
      json_(new JsonDocument(formatted)),
      nodes_(new Node[requestCount()]) {}

unsigned int JsonLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (!initializeFilterLogWriter()) return 0;
    if (json_ == nullptr) return 0;
    initializeJsonLogWriter();
    return jsonLogWriterInitialized_ ? FilterLogWriter::write(entry, unit) : 0;
}

void JsonLogWriter::initializeJsonLogWriter() {
    if (placeRequests() && !json_->isEmpty()) jsonLogWriterInitialized_ = true;
    if (json_->isRefused()) endEarly();
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
    const size_t valuesBefore = leaf.values_.length();
    const size_t timesBefore = leaf.times_.length();
    if (!addValue(leaf, entry, request)) return 0;
    leaf.times_.addNumber(std::round(entry.getTimestamp().asDouble() * 1000));
    if (!leaf.isRefused()) return 0;
    leaf.values_.cutTo(valuesBefore);
    leaf.times_.cutTo(timesBefore);
    endEarly();
    return 0;
}

// Nested arrays of the lengths, from an element of the blob on; elements past its end are null. The result is the
// element that is next.
static size_t AddBlob(JsonArray& values, const BlobValue& blob, const Unit& unit, const size_t* lengths, int rank,
                      size_t next) {
    const size_t count = blob.getCount();
    values.beginArray();
    for (size_t i = 0; i < *lengths; ++i) {
        const bool isPastEnd = next >= count;
        const size_t place = values.nextPlace();
        if (rank > 1) {
            next = AddBlob(values, blob, unit, lengths + 1, rank - 1, next);
        } else {
            double number = 0;
            blob.get(next++, unit, number);
            values.addNumber(number);
        }
        if (!isPastEnd) continue;
        values.addAgain(place, *lengths - i - 1);
        break;
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
            padding_.report(fileName(), nameOf(request));
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
    if (json_ != nullptr && isValid() && !json_->write(*logStream_)) tellRefused();
    json_.reset();
}

void JsonLogWriter::endEarly() {
    tellRefused();
    writeDocument();
}

void JsonLogWriter::tellRefused() const {
    log_.getLogger().syslog(Str("Failed to write ") + fileName() + ": " + strerror(ENOMEM), Syslog::ERROR);
}

void JsonLogWriter::resetInputs() {
    ArrayLogWriter::resetInputs();
    if (json_ != nullptr) json_->forgetElements();
}
