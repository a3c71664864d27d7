#pragma once

#include <initializer_list>
#include <memory>

#include "logger/rule/Rule.h"
#include "utils/FlexArray.h"

// Admits what its child does not.
class NotRule final : public Rule {
public:
    explicit NotRule(Rule* rule) : rule_(rule) {}  // takes the child over; not null
    bool check(const LogEntry* entry) override { return !rule_->check(entry); }
    Str toString() const override { return Str("NOT(") + rule_->toString() + ")"; }

private:
    const std::unique_ptr<Rule> rule_;
};

// Several rules joined by one word. They are asked in order, and no longer than the answer is open.
class CompositeRule : public Rule {
public:
    Str toString() const override;  // (first) AND (second)

protected:
    CompositeRule(const char* word, std::initializer_list<Rule*> rules);
    // Asks the children in order until one answers as wanted; true when one did.
    bool anyAnswers(bool wanted, const LogEntry* entry);
    // Whether there is a child that can, or cannot, admit entries of the type.
    bool anyCan(bool wanted, LogEntry::Type type) const;

private:
    const char* const word_;  // borrowed
    FlexArray<Rule*> rules_;  // owned, none of them null
};

// Admits what any child admits. Takes the children over; only the first two are required.
class OrRule final : public CompositeRule {
public:
    OrRule(Rule* ruleOne, Rule* ruleTwo, Rule* ruleThree = nullptr, Rule* ruleFour = nullptr, Rule* ruleFive = nullptr)
        : CompositeRule("OR", {ruleOne, ruleTwo, ruleThree, ruleFour, ruleFive}) {}
    bool check(const LogEntry* entry) override { return anyAnswers(true, entry); }
    bool canAdmit(LogEntry::Type type) const override { return anyCan(true, type); }
};

// Admits what every child admits. Takes the children over; only the first two are required.
class AndRule final : public CompositeRule {
public:
    AndRule(Rule* ruleOne, Rule* ruleTwo, Rule* ruleThree = nullptr, Rule* ruleFour = nullptr, Rule* ruleFive = nullptr,
            Rule* ruleSix = nullptr, Rule* ruleSeven = nullptr)
        : CompositeRule("AND", {ruleOne, ruleTwo, ruleThree, ruleFour, ruleFive, ruleSix, ruleSeven}) {}
    bool check(const LogEntry* entry) override { return !anyAnswers(false, entry); }
    bool canAdmit(LogEntry::Type type) const override { return !anyCan(false, type); }
};
