#pragma once

#include "logger/engine/LogAssociation.h"
#include "utils/FlexArray.h"

// An engine's associations, owned, in the order in which entries are offered to them.
class LoggerAssociationDeque : public FlexArray<LogAssociation*> {
public:
    LoggerAssociationDeque() : FlexArray<LogAssociation*>(true) {}

    // Each gives the association back, which belongs to the list. The writer is counted, the rule taken over; it may be
    // null.
    LogAssociation* add(LogWriter* writer, Rule* rule) { return add(new LogAssociation(writer, rule)); }
    LogAssociation* add(LogAssociation* association) {
        push(association);
        return association;
    }
    void remove(const LogWriter* writer);  // destroys the first association of the writer
    unsigned int count() const { return static_cast<unsigned int>(getMaxIndex() + 1); }
};
