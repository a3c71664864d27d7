#pragma once

#include <memory>

#include "logger/writer/approximation/VarData.h"
#include "logger/writer/decimation/DecimationLogWriter.h"

// Decimates one variable by linear approximation within an error bound that can be reconfigured.
class LinearApproxLogWriter : public DecimationLogWriter {
public:
    // Takes the error bound over; without one (null is reported as a fault) nothing is passed on.
    LinearApproxLogWriter(LogWriter& outputTo, const Str& varName, DataValue* approxError, bool cycleStarts,
                          Logger& logger);
    ~LinearApproxLogWriter() override;

    unsigned int writeFooter() override;
    void resetInputs() override;  // ends the series
    // The first value is taken over as it is, later ones are copied into it; null makes the bound not-a-number.
    void setParameter(DataValue* value, Logger& logger) override;
    unsigned int flush() override;  // the points that are still pending

protected:
    unsigned int sample(const DataEntry& entry, const Unit* unit) override;

private:
    unsigned int passPoint(const Unit* unit);
    void makeBoundNaN();
    float bound() const;  // in the base unit; NaN without one

    std::unique_ptr<DataValue> approxErrorValue_;  // may be null
    std::unique_ptr<VarData> varData_;             // null until the first sample
};
