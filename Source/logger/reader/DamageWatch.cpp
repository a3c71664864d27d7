#include "logger/reader/DamageWatch.h"

#include "data/Slate.h"
#include "utils/TextBuffer.h"

void DamageWatch::beginFile(const Str& file) {
    file_ = file;
    goodEnd_ = 0;
    failures_ = stretches_ = 0;
    skipped_ = 0;
    entriesAfter_ = 0;
    if (notes_ != nullptr) notes_->beginFile();
}

void DamageWatch::entryRead(long long begin, long long end) {
    if (failures_ > 0) endStretch(begin);
    if (isDamaged()) ++entriesAfter_;
    goodEnd_ = end;
}

void DamageWatch::nothingRead(bool failed, long long end) {
    if (failed || complaints() != complaintsBefore_) {
        if (++failures_ == MAX_SHOWN && gate_ != nullptr) gate_->close();
    } else if (failures_ == 0) {
        goodEnd_ = end;
    }
    if (gate_ != nullptr) gate_->dropWaiting();
}

void DamageWatch::endFile(long long end) {
    if (failures_ > 0) endStretch(end);
    if (gate_ != nullptr && isDamaged()) sumUp();
}

// What the entry that ends the stretch has to say comes after it.
void DamageWatch::endStretch(long long end) {
    failures_ = 0;
    ++stretches_;
    skipped_ += end - goodEnd_;
    if (gate_ == nullptr) return;
    TextBuffer text;
    text.append("Skipped ").appendInt(end - goodEnd_).append(" bytes of ").append(file_).append(" from byte 0x");
    gate_->getOutside().syslog(text.appendHex(static_cast<unsigned long long>(goodEnd_)).toStr(), Syslog::ERROR);
    gate_->open();
}

// A log without a directory of its own may be damaged only in the eyes of a directory that is another log's.
void DamageWatch::sumUp() const {
    TextBuffer text;
    text.append("Damage in ").append(file_).append(": stretches skipped ").appendInt(stretches_);
    text.append(", bytes in them ").appendInt(skipped_);
    text.append(", entries decoded since the damage began ").appendInt(static_cast<long long>(entriesAfter_));
    if (notes_ != nullptr) {
        text.append(", cycles whose time went back or jumped by more than an hour ").appendInt(notes_->getJumps());
        text.append(", cycle starts that stand at one time ").appendInt(notes_->getStanding());
        const bool isReadByAnother = !notes_->hasDirectory() && !Slate::GetSideFile().isEmpty();
        if (isReadByAnother) text.append("; all that is known of its codes is from ").append(Slate::GetSideFile());
    }
    gate_->getOutside().syslog(text.toStr(), Syslog::ERROR);
}
