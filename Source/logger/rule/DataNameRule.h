#pragma once

#include "data/ElementURI.h"
#include "logger/rule/EntryRules.h"

// Admits the writes, or the reads, of one element. A best value is admitted under its universal name too.
class DataNameRule final : public DataWriteRule {
public:
    DataNameRule(const Str& name, bool dataWrite) : DataWriteRule(dataWrite), dataName_(name) {}
    bool check(const LogEntry* entry) override;
    Str toString() const override;

private:
    bool resolve();

    const Str dataName_;
    unsigned short code_ = ElementURI::NO_CODE;  // of the element, once the log has named it
    unsigned int slateElementURICount_ = 0;      // at the last look-up
};
