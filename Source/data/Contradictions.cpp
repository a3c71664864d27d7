#include "data/Contradictions.h"

#include "data/Log.h"

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

}  // namespace

template <typename T>
Str Contradictions::First(const CodedItems<T>& items) {
    for (unsigned int code = 0; code < items.nextCode_; ++code) {
        if (items.isRetold(static_cast<unsigned short>(code))) return Contradiction(items, code, true);
    }
    return Str();
}
template Str Contradictions::First(const CodedItems<ElementURI>&);
template Str Contradictions::First(const CodedItems<CodedStr>&);
template Str Contradictions::First(const CodedItems<DataAccess>&);

void Contradictions::begin(const Str& logName) {
    logName_ = logName;
    count_ = 0;
}

template <typename T>
void Contradictions::report(CodedItems<T>& items, unsigned short code) {
    const Logger& logger = log_.getLogger();
    if (logName_.isEmpty() || logger.isSilent()) return;
    if (!items.isRetold(code) || items.reported_[code]) return;
    items.reported_.set(code);
    if (++count_ > MAX_SHOWN) return;
    const bool isBySideFile = !log_.getSideFile().isEmpty();
    logger.syslog(whatIsContradicted() + ": " + Contradiction(items, code, isBySideFile) + "; its values are left out",
                  Syslog::ERROR);
}
template void Contradictions::report(CodedItems<ElementURI>&, unsigned short);
template void Contradictions::report(CodedItems<CodedStr>&, unsigned short);
template void Contradictions::report(CodedItems<DataAccess>&, unsigned short);

Str Contradictions::whatIsContradicted() const {
    const Str& sideFile = log_.getSideFile();
    return "Log " + logName_ + " contradicts " + (sideFile.isEmpty() ? Str("itself") : "its side file " + sideFile);
}

void Contradictions::end() {
    if (count_ > MAX_SHOWN) {
        log_.getLogger().syslog(whatIsContradicted() + " in " + Str(static_cast<size_t>(count_ - MAX_SHOWN), 10) +
                                    " more codes; their values are left out",
                                Syslog::ERROR);
    }
    begin(Str::EMPTY_STR);
}
