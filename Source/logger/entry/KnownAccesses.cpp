#include "logger/entry/KnownAccesses.h"

#include <algorithm>

// A number takes as many bytes as its class has, which need not be those that the access declares.
static bool TakesBytes(const DataAccess& access, const DataElement* element) {
    const DataValue* const value = element == nullptr ? nullptr : element->getDataValue();
    if (value == nullptr) return false;
    const bool isWhole = access.getBinaryType() == STRVALUE || value->getTypeSize() == access.getTypeSize();
    return isWhole && value->isOf(access.getBinaryType(), access.unitOrNone());
}

void KnownAccesses::meet(DataAccess& access, LogEntry::Values values) {
    const bool isRetold = log_.isAnythingRetold() && log_.isRetold(access);
    DataElement* const element = log_.getElement(access.getElementCode());
    const bool hasElement = values == LogEntry::SKIP_VALUES || element != nullptr;
    const bool isNamed = log_.getElementURI(access.getElementCode()) != nullptr;
    if (isRetold || !hasElement || !isNamed || access.isUntyped()) return;
    KnownAccess& known = at(access.getCode());
    known.form_ = DataForm(access);
    known.access_ = &access;
    known.element_ = element;
    known.unit_ = TakesBytes(access, element) ? &access.unitOrNone() : nullptr;
    known.knownAt_ = log_.getChanges();
}

KnownAccess& KnownAccesses::at(unsigned int code) {
    if (code >= count_) {
        const unsigned int count = std::max(2 * count_, code + 1);
        std::unique_ptr<KnownAccess[]> more(new KnownAccess[count]);
        std::copy_n(accesses_.get(), count_, more.get());
        accesses_ = std::move(more);
        count_ = count;
    }
    return accesses_[code];
}
