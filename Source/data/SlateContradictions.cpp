// What a log says of its codes otherwise than what is registered under them.

#include "data/Logger.h"
#include "data/Slate.h"

namespace {

// The record without the blank that it begins with and the line feed at its end.
template <typename T>
Str RecordOf(const T& item) {
    const Str record = item.recordText();
    return record.substr(1, record.length() - 2);
}

template <typename T>
Str Contradiction(const CodedItems<T>& items, unsigned int code, bool isBySideFile) {
    return Str(items.kind_) + " " + RecordOf(*items.retold_.at(code)) + (isBySideFile ? ", there " : ", before ") +
           RecordOf(*items.byCode_.at(code));
}

// The first of a kind; empty when there is none.
template <typename T>
Str FirstContradiction(const CodedItems<T>& items) {
    for (unsigned int code = 0; code < items.nextCode_; ++code) {
        if (items.isRetold(static_cast<unsigned short>(code))) return Contradiction(items, code, true);
    }
    return Str();
}

}  // namespace

void Slate::BeginLog(const Str& name) {
    LogName_ = name;
    ContradictionCount_ = 0;
    {
        MutexLocker lock(ElementMutex_);
        ElementURIs_.forgetRetold();
    }
    {
        MutexLocker lock(NameMutex_);
        Names_.forgetRetold();
    }
    MutexLocker lock(DataAccessMutex_);
    DataAccesses_.forgetRetold();
}

DataAccess* Slate::FindToldAccess(unsigned short code) {
    MutexLocker lock(DataAccessMutex_);
    DataAccess* const told = RetoldDataAccesses_.at(code);
    return told != nullptr ? told : DataAccessArray_.at(code);
}

bool Slate::IsRetold(const DataAccess& told) {
    {
        MutexLocker lock(DataAccessMutex_);
        if (DataAccesses_.isRetold(told.getCode())) return true;
    }
    {
        MutexLocker lock(NameMutex_);
        if (Names_.isRetold(told.getOwnerCode())) return true;
    }
    MutexLocker lock(ElementMutex_);
    return ElementURIs_.isRetold(told.getElementCode()) || ElementURIs_.isRetold(told.getEffectiveUniversalCode());
}

template <typename T>
void Slate::ReportRetold(CodedItems<T>& items, unsigned short code) {
    if (LogName_.isEmpty() || GetLogger().isSilent()) return;
    if (!items.isRetold(code) || items.reported_[code]) return;
    items.reported_.set(code);
    if (++ContradictionCount_ > MAX_CONTRADICTIONS_SHOWN) return;
    GetLogger().syslog(
        WhatIsContradicted() + ": " + Contradiction(items, code, !SideFile_.isEmpty()) + "; its values are left out",
        Syslog::ERROR);
}
template void Slate::ReportRetold(CodedItems<ElementURI>&, unsigned short);
template void Slate::ReportRetold(CodedItems<CodedStr>&, unsigned short);
template void Slate::ReportRetold(CodedItems<DataAccess>&, unsigned short);

Str Slate::WhatIsContradicted() {
    return "Log " + LogName_ + " contradicts " + (SideFile_.isEmpty() ? Str("itself") : "its side file " + SideFile_);
}

void Slate::EndLog() {
    if (ContradictionCount_ > MAX_CONTRADICTIONS_SHOWN) {
        GetLogger().syslog(WhatIsContradicted() + " in " +
                               Str(static_cast<size_t>(ContradictionCount_ - MAX_CONTRADICTIONS_SHOWN), 10) +
                               " more codes; their values are left out",
                           Syslog::ERROR);
    }
    ContradictionCount_ = 0;
    LogName_ = Str::EMPTY_STR;
}

Str Slate::DescribeContradiction() {
    {
        MutexLocker lock(DataAccessMutex_);
        const Str ofAccesses = FirstContradiction(DataAccesses_);
        if (!ofAccesses.isEmpty()) return ofAccesses;
    }
    {
        MutexLocker lock(NameMutex_);
        const Str ofNames = FirstContradiction(Names_);
        if (!ofNames.isEmpty()) return ofNames;
    }
    MutexLocker lock(ElementMutex_);
    return FirstContradiction(ElementURIs_);
}
