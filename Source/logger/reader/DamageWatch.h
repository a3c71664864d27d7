#pragma once

#include "data/Log.h"
#include "logger/reader/EntryNotes.h"
#include "logger/reader/MessageGate.h"
#include "utils/Str.h"

// Follows the decoding of one file, attempt by attempt, and reports its damage: the messages of the first failures of a
// damaged stretch are shown, those of the others dropped, and when an entry decodes again one message says how many
// bytes were skipped. A stretch is what lies between the last good entry and the next. At the end of a damaged file one
// message sums up. Positions are bytes from the start of the file.
class DamageWatch {
public:
    static constexpr unsigned int MAX_SHOWN = 20;      // failures of one stretch whose messages are shown
    static constexpr unsigned int MAX_STRETCHES = 20;  // of one file that are told of one by one

    // All are borrowed; null: nothing is reported, and nothing is known of the entries.
    DamageWatch(MessageGate* gate, EntryNotes* notes, const Log& log) : gate_(gate), notes_(notes), log_(log) {}

    // The name is for the messages; what was noted of the file before is forgotten.
    void beginFile(const Str& file);
    // Before each try to decode an entry, of which one of the next two tells the outcome.
    void beginAttempt() { complaintsBefore_ = complaints(); }
    bool isInStretch() const { return failures_ > 0; }
    // So many entries, one behind the other, lay from begin up to end: a damaged stretch, if there was one, ends here.
    void entriesRead(unsigned int n, long long begin, long long end) {
        if (isInStretch()) endStretch(begin);
        if (isDamaged()) entriesAfter_ += n;
        goodEnd_ = end;
    }
    // No entry came of the bytes up to `end`. Bytes that hold none by design are no damage: nobody complains of them.
    void nothingRead(bool failed, long long end);
    // The file ends, in the midst of a stretch perhaps; if it was damaged, this sums up.
    void endFile(long long end);

private:
    unsigned long complaints() const { return gate_ == nullptr ? 0 : gate_->getComplaints(); }
    bool isDamaged() const { return stretches_ > 0 || (notes_ != nullptr && notes_->getStanding() > 0); }
    void endStretch(long long end);
    void reportStretch(long long end) const;
    void sumUp() const;

    MessageGate* const gate_;  // borrowed; may be null
    EntryNotes* const notes_;  // borrowed; may be null
    const Log& log_;           // borrowed
    Str file_;
    long long goodEnd_ = 0;      // where the last good entry ended
    unsigned int failures_ = 0;  // since then
    unsigned long complaintsBefore_ = 0;
    unsigned int stretches_ = 0;      // of this file
    long long skipped_ = 0;           // bytes in them
    unsigned long entriesAfter_ = 0;  // decoded since the first sign of damage
};
