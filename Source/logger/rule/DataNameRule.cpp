#include "logger/rule/DataNameRule.h"

#include "logger/entry/DataEntry.h"

bool DataNameRule::check(const LogEntry* entry) {
    if (!resolve() || !DataWriteRule::check(entry)) return false;
    const DataEntry& data = *static_cast<const DataEntry*>(entry);
    return data.getElementCode() == code_ || data.getBestCode() == code_;
}

Str DataNameRule::toString() const {
    return Str("dataName=") + dataName_ + ", " + DataWriteRule::toString();
}

// A name that is not known yet is looked up again only when the log has named more elements.
bool DataNameRule::resolve() {
    if (code_ != ElementURI::NO_CODE) return true;
    const unsigned int count = log_.getElementURICount();
    if (count == elementURICount_) return false;
    elementURICount_ = count;
    code_ = log_.getElementURICode(dataName_.cStr());
    return code_ != ElementURI::NO_CODE;
}
