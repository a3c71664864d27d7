#include "logger/rule/CompositeRules.h"

CompositeRule::CompositeRule(const char* word, std::initializer_list<Rule*> rules) : word_(word), rules_(true) {
    for (Rule* rule : rules) {
        if (rule != nullptr) rules_.push(rule);
    }
}

bool CompositeRule::anyAnswers(bool wanted, const LogEntry* entry) {
    for (unsigned int i = 0; i < rules_.size(); ++i) {
        if (rules_.at(i)->check(entry) == wanted) return true;
    }
    return false;
}

bool CompositeRule::anyCan(bool wanted, LogEntry::Type type) const {
    for (unsigned int i = 0; i < rules_.size(); ++i) {
        if (rules_.at(i)->canAdmit(type) == wanted) return true;
    }
    return false;
}

Str CompositeRule::toString() const {
    Str text("(");
    for (unsigned int i = 0; i < rules_.size(); ++i) {
        if (i > 0) text << ") " << word_ << " (";
        text << rules_.at(i)->toString();
    }
    return text << ")";
}
