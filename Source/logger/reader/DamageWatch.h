#pragma once

#include "logger/reader/MessageGate.h"
#include "utils/Str.h"

// Follows the decoding of one file, attempt by attempt, and reports its damage: the messages of the first failures of a
// damaged stretch are shown, those of the others withheld, and when an entry decodes again one message says how many
// bytes were skipped. A stretch is what lies between the last good entry and the next. Positions are bytes from the
// start of the file.
class DamageWatch {
public:
    static constexpr unsigned int MAX_SHOWN = 20;  // failures of one stretch whose messages are shown

    explicit DamageWatch(MessageGate* gate) : gate_(gate) {}  // borrowed; null: nothing is reported

    void beginFile(const Str& file);
    void beginAttempt() { complaintsBefore_ = complaints(); }
    void entryRead(long long begin, long long end);
    // No entry came of the bytes up to `end`. Bytes that hold none by design are no damage: nobody complains of them.
    void nothingRead(bool failed, long long end);
    void endFile(long long end);

private:
    unsigned long complaints() const { return gate_ == nullptr ? 0 : gate_->getComplaints(); }
    void report(long long end);

    MessageGate* const gate_;  // borrowed; may be null
    Str file_;
    long long goodEnd_ = 0;      // where the last good entry ended
    unsigned int failures_ = 0;  // since then
    unsigned long complaintsBefore_ = 0;
};
