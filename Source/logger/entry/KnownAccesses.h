#pragma once

#include <memory>

#include "data/DataElement.h"
#include "data/Log.h"
#include "io/ByteCursor.h"
#include "logger/entry/DataForm.h"
#include "logger/entry/TimeBounds.h"

// An access whose entries need no closer look.
struct KnownAccess {
    // The element's value where it is of the access's class and unit; null where it is not.
    DataValue* valueToFill() const {
        DataValue* const value = element_->getDataValue();
        return value != nullptr && value->isOf(form_.getType(), *unit_) ? value : nullptr;
    }

    // Passes over an entry, of which nothing is wanted; false for one that is not whole there or needs a closer look.
    bool stepOver(ByteCursor& from, const Timestamp& timeBase, bool timesHaveFlag) const {
        Timestamp t = timeBase;
        bool changed = false;
        unsigned short size = 0;
        return form_.takeTime(t, changed, from, timesHaveFlag) && TimeBounds::Holds(t) &&
               (!changed || form_.takeValue(size, from) != nullptr);
    }

    DataForm form_;
    DataAccess* access_ = nullptr;    // borrowed
    DataElement* element_ = nullptr;  // borrowed; null only where values are skipped
    const Unit* unit_ = nullptr;      // of its values; null where they do not take the log's bytes as they are
    unsigned int knownAt_ = 0;        // the log's changes then; 0: never
};

// The accesses of a log by their codes, as they are met. When the log's codes change all must be met again.
class KnownAccesses {
public:
    explicit KnownAccesses(const Log& log) : log_(log) {}  // borrowed

    const KnownAccess* find(unsigned int code) const {  // null when it is not known
        const bool isKnown = code < count_ && accesses_[code].knownAt_ == log_.getChanges();
        return isKnown ? &accesses_[code] : nullptr;
    }
    // An entry of the access has just been read.
    void meet(DataAccess& access, LogEntry::Values values);

private:
    KnownAccess& at(unsigned int code);

    const Log& log_;
    std::unique_ptr<KnownAccess[]> accesses_;
    unsigned int count_ = 0;
};
