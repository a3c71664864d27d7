#include "logger/reader/DamageWatch.h"

#include "utils/TextBuffer.h"

void DamageWatch::beginFile(const Str& file) {
    file_ = file;
    goodEnd_ = 0;
    failures_ = 0;
}

void DamageWatch::entryRead(long long begin, long long end) {
    if (failures_ > 0) report(begin);
    goodEnd_ = end;
}

void DamageWatch::nothingRead(bool failed, long long end) {
    if (failed || complaints() != complaintsBefore_) {
        if (++failures_ == MAX_SHOWN && gate_ != nullptr) gate_->close();
    } else if (failures_ == 0) {
        goodEnd_ = end;
    }
}

void DamageWatch::endFile(long long end) {
    if (failures_ > 0) report(end);
}

void DamageWatch::report(long long end) {
    failures_ = 0;
    if (gate_ == nullptr) return;
    gate_->open();
    TextBuffer text;
    text.append("Skipped ").appendInt(end - goodEnd_).append(" bytes of ").append(file_).append(" from byte 0x");
    gate_->getLogger().syslog(text.appendHex(static_cast<unsigned long long>(goodEnd_)).toStr(), Syslog::ERROR);
}
