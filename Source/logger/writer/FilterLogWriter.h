#pragma once

#include "logger/engine/LogWriter.h"
#include "logger/writer/VariableSelection.h"
#include "utils/Timestamp.h"

class DataEntry;
class EventEntry;

// Lets through to another writer only the data entries of a chosen list of variables and of a second list of
// attribute variables, and, if asked, cycle starts from the second on. A writer of its own overrides the three
// operations that receive what was selected.
class FilterLogWriter : public LogWriter {
public:
    // outputTo may be null (nothing is forwarded); it is shared.
    FilterLogWriter(LogWriter* outputTo, const RequestedVariables& variables, bool passCycleStarts,
                    const RequestedVariables& attributes);
    // From parallel lists; their texts are borrowed and outlive the writer.
    FilterLogWriter(LogWriter* outputTo, int varCount, char** varList, char** unitList, bool passCycleStarts,
                    int attCount, char** attList)
        : FilterLogWriter(outputTo, RequestedVariables(varCount, varList, unitList), passCycleStarts,
                          RequestedVariables(attCount, attList)) {}
    ~FilterLogWriter() override;

    unsigned int writeHeader() override;
    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    void endCycle() override;
    unsigned int writeFooter() override;
    void config(Logger& logger) override;
    void resetInputs() override;
    size_t heldBytes() override { return outputTo_ == nullptr ? 0 : outputTo_->heldBytes(); }
    void freeMemory() override {
        if (outputTo_ != nullptr) outputTo_->freeMemory();
    }
    bool isWhole() override { return outputTo_ == nullptr || outputTo_->isWhole(); }

    // Each returns the number of bytes written.
    virtual unsigned int writeCycleStart(const EventEntry* entry);
    virtual unsigned int writeData(const DataEntry* entry, int varIndex, const Unit* unit);
    virtual unsigned int writeAtt(const DataEntry* entry, int attIndex, const Unit* unit);

protected:
    // Looks open names up, when the directory has changed since the last try; true when no name is open any more.
    bool initializeFilterLogWriter();

    LogWriter* const outputTo_;  // shared; may be null
    VariableSelection variables_;
    VariableSelection attributes_;
    const bool passCycleStarts_;
    Timestamp lastTime_;  // of the last cycle start seen

private:
    unsigned int writeEvent(const EventEntry& event);
    unsigned int writeSelected(const DataEntry& entry, const Unit* unit);
    unsigned int writeVariable(const DataEntry& entry, int index, const Unit* unit);
};
