#pragma once

#include "logger/engine/LogWriter.h"

class DataEntry;
class DataValue;

// Passes the samples of one variable on to an output that it shares with others; derived writers pass on fewer. Only
// the variable's data entries, and cycle starts, are to be handed to it.
class DecimationLogWriter : public LogWriter {
public:
    enum DecimationType : int { NO_DECIMATION = -1, ALL_VALUES = 0, MOST_RECENT = 1, LINEAR_APPROXIMATION = 2 };

    // The output is borrowed. cycleStarts: a cycle start stamped with the newest cycle's time precedes the first entry
    // that is passed on in that cycle.
    DecimationLogWriter(LogWriter& outputTo, DecimationType type, const Str& varName, bool cycleStarts, Logger& logger);

    DecimationType getDecimationType() const { return type_; }
    const Str& getVarName() const { return varName_; }

    unsigned int write(const LogEntry* entry, const Unit* unit) override;  // notes cycle starts, samples data entries
    unsigned int writeHeader() override { return outputTo_.writeHeader(); }
    void endCycle() override { outputTo_.endCycle(); }
    void config(Logger& logger) override { outputTo_.config(logger); }
    virtual void setParameter(DataValue* value, Logger& logger);  // takes the value over; may be null
    virtual unsigned int flush() { return 0; }                    // passes on what is pending; bytes written

protected:
    virtual unsigned int sample(const DataEntry& entry, const Unit* unit) { return passOn(entry, unit); }
    unsigned int passOn(const DataEntry& entry, const Unit* unit);

    LogWriter& outputTo_;  // borrowed
    const Str varName_;

private:
    const DecimationType type_;
    const bool cycleStarts_;
    Timestamp cycleTime_;             // of the newest cycle start
    bool cycleStartPending_ = false;  // it has not been passed on
};
