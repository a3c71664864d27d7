#pragma once

#include "data/Log.h"
#include "logger/rule/EntryRules.h"

// Admits the writes, or the reads, of one element. A best value is admitted under its universal name too.
class DataNameRule final : public DataWriteRule {
public:
    // dataWrite: admits writes, else reads. A name that the log does not know yet admits nothing until it does.
    DataNameRule(const Str& name, bool dataWrite, const Log& log = Log::Current())  // the log is borrowed
        : DataWriteRule(dataWrite), dataName_(name), log_(log) {}
    bool check(const LogEntry* entry) override;
    Str toString() const override;

private:
    bool resolve();

    const Str dataName_;
    const Log& log_;                             // borrowed
    unsigned short code_ = ElementURI::NO_CODE;  // of the element, once the log has named it
    unsigned int elementURICount_ = 0;           // at the last look-up
};
