#pragma once

#include <memory>

#include "logger/engine/LogWriter.h"
#include "logger/rule/Rule.h"

// One writer and the rule that decides which entries reach it.
class LogAssociation final {
public:
    LogAssociation(LogWriter* writer, Rule* rule);  // counts the writer, owns the rule; a null rule admits everything
    ~LogAssociation();
    LogAssociation(const LogAssociation&) = delete;
    LogAssociation& operator=(const LogAssociation&) = delete;

    bool matchAndProcess(LogEntry* entry);  // true when the writer got the entry
    // The rule admits some entries of the type, maybe.
    bool canMatch(LogEntry::Type type) const { return rule_ == nullptr || rule_->canAdmit(type); }
    void endCycle();             // passed on only when the writer got an entry since the last one
    unsigned int writeFooter();  // bytes written
    // As the writer's config and resetInputs; without a writer neither does anything.
    void configLogWriter(Logger& logger);
    void resetInputs();

    // Borrowed; null where everything is admitted.
    Rule* getRule() const { return rule_.get(); }
    // Borrowed, may be null.
    LogWriter* getWriter() const { return writer_; }
    void setWriter(LogWriter* writer);  // counts it and gives up the one before

private:
    LogWriter* writer_;  // shared: its last holder deletes it; may be null
    const std::unique_ptr<Rule> rule_;
    bool wroteInCycle_ = false;
};
