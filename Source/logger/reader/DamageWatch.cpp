#include "logger/reader/DamageWatch.h"

#include "utils/TextBuffer.h"

void DamageWatch::beginFile(const Str& file) {
    file_ = file;
    goodEnd_ = 0;
    failures_ = stretches_ = 0;
    skipped_ = 0;
    entriesAfter_ = 0;
    if (notes_ != nullptr) notes_->beginFile();
    if (gate_ != nullptr) gate_->beginFile();
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
    if (gate_ != nullptr && (isDamaged() || gate_->getTooMany() > 0)) sumUp();
}

// What the entry that ends the stretch has to say comes after it.
void DamageWatch::endStretch(long long end) {
    failures_ = 0;
    ++stretches_;
    skipped_ += end - goodEnd_;
    if (gate_ == nullptr) return;
    if (stretches_ <= MAX_STRETCHES) reportStretch(end);
    gate_->open();
}

void DamageWatch::reportStretch(long long end) const {
    TextBuffer text;
    text.append("Skipped ").appendInt(end - goodEnd_).append(" bytes of ").append(file_).append(" from byte 0x");
    gate_->getOutside().syslog(text.appendHex(static_cast<unsigned long long>(goodEnd_)).toStr(), Syslog::ERROR);
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
    }
    if (gate_->getTooMany() > 0) text.append(", messages not shown ").appendInt(gate_->getTooMany());
    const bool isReadByAnother = notes_ != nullptr && !notes_->hasDirectory() && !log_.getSideFile().isEmpty();
    if (isReadByAnother) text.append("; all that is known of its codes is from ").append(log_.getSideFile());
    gate_->getOutside().syslog(text.toStr(), Syslog::ERROR);
}
