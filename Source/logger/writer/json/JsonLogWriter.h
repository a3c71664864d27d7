#pragma once

#include <memory>

#include "logger/writer/ArrayLogWriter.h"
#include "logger/writer/json/JsonDocument.h"

// The samples of the selected variables and settings as one JSON document: an object for each part of a name, and in
// the last one the arrays of values and times (milliseconds since the epoch). Arrays of the log are nested arrays.
// All samples stay in memory, as text, until the footer writes the document. When they are refused memory the document
// is written with what is there by then, and an ERROR tells.
class JsonLogWriter final : public ArrayLogWriter {
public:
    // The lists are borrowed. formatted: over many lines, indented.
    JsonLogWriter(bool formatted, int varCount, char** varList, char** unitList, int attCount, char** attList);

    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    // The document, once. When no variable has a place in it, the reasons go to standard output instead.
    unsigned int writeFooter() override;
    void resetInputs() override;
    size_t heldBytes() override { return json_ == nullptr ? 0 : json_->heldBytes(); }
    void endEarly() override;  // writes the document

protected:
    bool place(int request) override;
    unsigned int addSample(const DataEntry& entry, int request) override;  // kept, not written: 0

private:
    // The place of a request: null while it has none, or when another name that comes to the same has it.
    struct Node {
        JsonLeaf* leaf_ = nullptr;    // the document's
        const Unit* unit_ = nullptr;  // in which the values are written
    };

    // How the elements of an array are nested, the outermost length first.
    struct Shape {
        Shape(const ElementURI* name, size_t elementCount);
        size_t part() const { return (rank_ > 1 ? lengths_[1] : 1) * (rank_ > 2 ? lengths_[2] : 1); }
        size_t elements() const { return lengths_[0] * part(); }

        size_t lengths_[3] = {};
        int rank_;
    };

    void initializeJsonLogWriter();
    void addVar(int request, const Unit& unit);
    bool addValue(JsonLeaf& leaf, const DataEntry& entry, int request);
    void writeDocument();
    void tellRefused() const;
    const char* fileName() const { return logStream_ == nullptr ? "" : logStream_->getName(); }

    std::unique_ptr<JsonDocument> json_;     // null once it is written
    bool jsonLogWriterInitialized_ = false;  // some input's requests were all placed; samples are kept from then on
    const std::unique_ptr<Node[]> nodes_;    // per request
};
