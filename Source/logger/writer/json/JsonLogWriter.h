#pragma once

#include <memory>

#include "logger/writer/ArrayLogWriter.h"
#include "logger/writer/json/JsonDocument.h"

// The samples of the selected variables and settings as one JSON document: an object for each part of a name, and in
// the last one the arrays of values and times (milliseconds since the epoch). Arrays of the log are nested arrays.
// The samples wait for the footer, which writes the document, in memory and in a temporary file. When that fails the
// document is written with what is there by then, and an ERROR tells.
class JsonLogWriter final : public ArrayLogWriter {
public:
    // formatted: over many lines, indented.
    JsonLogWriter(bool formatted, const RequestedVariables& variables, const RequestedVariables& settings);
    // From parallel lists; their texts are borrowed and outlive the writer.
    JsonLogWriter(bool formatted, int varCount, char** varList, char** unitList, int attCount, char** attList)
        : JsonLogWriter(formatted, RequestedVariables(varCount, varList, unitList),
                        RequestedVariables(attCount, attList)) {}

    unsigned int writeHeader() override;  // writes nothing
    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    // The document, once. When no variable has a place in it, the reasons go to standard output instead.
    unsigned int writeFooter() override;
    void resetInputs() override;
    size_t heldBytes() override { return json_ == nullptr ? 0 : json_->samples().heldBytes(); }
    void freeMemory() override;
    bool isWhole() override { return isWhole_; }

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
    const char* fileName() const { return logStream_ == nullptr ? "" : logStream_->getName(); }

    std::unique_ptr<JsonDocument> json_;  // null once it is written
    bool isWhole_ = true;
    bool jsonLogWriterInitialized_ = false;  // some input's requests were all placed; samples are kept from then on
    const std::unique_ptr<Node[]> nodes_;    // per request
};
