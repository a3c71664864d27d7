#include "logger/writer/decimation/LinearApproxLogWriter.h"

#include <limits>

#include "data/DataValue.h"

LinearApproxLogWriter::LinearApproxLogWriter(LogWriter& outputTo, const Str& varName, DataValue* approxError,
                                             bool cycleStarts, Logger& logger)
    : DecimationLogWriter(outputTo, LINEAR_APPROXIMATION, varName, cycleStarts, logger),
      approxErrorValue_(approxError) {
    if (approxError == nullptr) {
        logger.syslog("Initializing LinearApproxWriter with NULL parameter value", Syslog::FAULT);
    }
}

LinearApproxLogWriter::~LinearApproxLogWriter() = default;

unsigned int LinearApproxLogWriter::sample(const DataEntry& entry, const Unit* unit) {
    if (approxErrorValue_ == nullptr) return 0;
    if (!entry.isNumber()) return passOn(entry, unit);
    if (varData_ == nullptr) {
        varData_.reset(new VarData(entry, bound()));
        return passOn(*varData_->getDataEntry(), unit);
    }
    if (!varData_->checkNextEntry(&entry)) return 0;
    unsigned int bytes = passPoint(unit);
    if (varData_->wasNaN()) bytes += passPoint(unit);
    return bytes;
}

unsigned int LinearApproxLogWriter::flush() {
    unsigned int bytes = 0;
    while (varData_ != nullptr && !varData_->isSettled()) bytes += passPoint(nullptr);
    return bytes;
}

// Others write to the output too: its footer is not this writer's to call.
unsigned int LinearApproxLogWriter::writeFooter() {
    return flush();
}

void LinearApproxLogWriter::resetInputs() {
    flush();
    varData_.reset();
}

void LinearApproxLogWriter::setParameter(DataValue* value, Logger& logger) {
    if (value == nullptr) {
        logger.syslog("Configuring LinearApproxWriter with NULL parameter value", Syslog::FAULT);
        if (approxErrorValue_ != nullptr) makeBoundNaN();
    } else if (approxErrorValue_ == nullptr) {
        approxErrorValue_.reset(value);
    } else {
        approxErrorValue_->setFrom(*value);
        delete value;
    }
    if (varData_ != nullptr) varData_->setApproxError(bound());
}

// As a double of the same unit: not every class of value holds NaN.
void LinearApproxLogWriter::makeBoundNaN() {
    approxErrorValue_.reset(approxErrorValue_->unitOrNone().dataValue(DOUBLE8));
}

float LinearApproxLogWriter::bound() const {
    float bound = std::numeric_limits<float>::quiet_NaN();
    if (approxErrorValue_ != nullptr) approxErrorValue_->copyTo(approxErrorValue_->getBaseUnit(), bound);
    return bound;
}

unsigned int LinearApproxLogWriter::passPoint(const Unit* unit) {
    varData_->advance();
    return passOn(*varData_->getDataEntry(), unit);
}
