#pragma once

#include <memory>

#include "logger/writer/FilterLogWriter.h"
#include "logger/writer/PaddingLimit.h"
#include "logger/writer/SlateWatch.h"
#include "logger/writer/json/JsonDocument.h"

// The samples of the selected variables and settings as one JSON document: an object for each part of a name, and in
// the last one the arrays of values and times (milliseconds since the epoch). Arrays of the log are nested arrays.
// The samples wait for the footer, which writes the document, in memory and in a temporary file. When that fails the
// document is written with what is there by then, and an ERROR tells.
class JsonLogWriter final : public FilterLogWriter {
public:
    // The lists are borrowed. formatted: over many lines, indented.
    JsonLogWriter(bool formatted, int varCount, char** varList, char** unitList, int attCount, char** attList);

    unsigned int writeHeader() override;  // writes nothing
    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    // The document, once. When no variable has a place in it, the reasons go to standard output instead.
    unsigned int writeFooter() override;
    // Each keeps one sample; nothing is written, the result is 0.
    unsigned int writeData(const DataEntry* entry, int varIndex, const Unit* unit) override;
    unsigned int writeAtt(const DataEntry* entry, int attIndex, const Unit* unit) override;
    void resetInputs() override;
    size_t heldBytes() override { return json_ == nullptr ? 0 : json_->samples().heldBytes(); }
    void freeMemory() override;
    bool isWhole() override { return isWhole_; }

private:
    // The place of a request: null while it has none, or when another request of an equal name has it.
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
    // index: the place of a request among the variables and, behind them, the settings. Each is true when nothing that
    // the log may still bring can change the result.
    bool place(int index);
    bool placeFirst(int index);
    void addVar(int index, const Unit& unit);

    bool addValue(JsonLeaf& leaf, const DataEntry& entry, int index);
    void writeDocument();
    const char* fileName() const { return logStream_ == nullptr ? "" : logStream_->getName(); }

    std::unique_ptr<JsonDocument> json_;  // null once it is written
    bool isWhole_ = true;
    bool jsonLogWriterInitialized_ = false;  // some input's requests were all placed; samples are kept from then on
    const std::unique_ptr<Node[]> nodes_;
    const std::unique_ptr<int[]> shortestFirst_;  // the requests by the length of their names
    SlateWatch watch_{log_};                      // of the last try to initialize
    PaddingLimit padding_;
};
