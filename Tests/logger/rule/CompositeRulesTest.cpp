#include "logger/rule/CompositeRules.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>

#include "logger/rule/EntryRules.h"

namespace {
// Answers as told, and leaves its name in a journal when it is asked and when it is deleted.
class Told : public Rule {
public:
    Told(char name, bool answer, std::string& journal) : name_(name), answer_(answer), journal_(journal) {}
    ~Told() override { journal_ += '~'; }
    bool check(const LogEntry*) override {
        journal_ += name_;
        return answer_;
    }
    Str toString() const override { return Str(&name_, 1); }

private:
    const char name_;
    const bool answer_;
    std::string& journal_;  // borrowed
};

class CompositeRulesTest : public testing::Test {
protected:
    Rule* yes(char name) { return new Told(name, true, journal_); }
    Rule* no(char name) { return new Told(name, false, journal_); }

    std::string journal_;
};
}  // namespace

// What the children cannot admit; of what one cannot admit its opposite may admit anything.
TEST_F(CompositeRulesTest, KnowTheTypesThatTheyCanAdmit) {
    typedef LogEntry::Type Type;
    const auto only = [](Type type) { return new TypeRule(type); };
    const Type data = LogEntry::DATA_LOG_ENTRY;
    const Type event = LogEntry::EVENT_LOG_ENTRY;
    const Type syslog = LogEntry::SYSLOG_LOG_ENTRY;
    const std::tuple<Rule*, const char*> cases[] = {
        // for an event, a data entry and a message
        {new OrRule(only(data), only(event)), "yes yes no "},
        {new AndRule(only(data), yes('a')), "no yes no "},
        {new AndRule(only(data), only(event)), "no no no "},
        {new OrRule(new NotRule(only(data)), only(syslog)), "yes yes yes "},
    };
    for (const auto& [rule, expected] : cases) {
        std::string answers;
        for (const Type type : {event, data, syslog}) answers += rule->canAdmit(type) ? "yes " : "no ";
        EXPECT_EQ(expected, answers) << rule->toString().cStr();
        delete rule;
    }
}

// One kind until one admits, the other until one refuses. The children go with their parent.
TEST_F(CompositeRulesTest, AskInOrderNoMoreThanTheyNeed) {
    const std::tuple<Rule*, bool, const char*, const char*> cases[] = {
        // with the journal and the text
        {new OrRule(no('a'), no('b'), nullptr, yes('d'), yes('e')), true, "abd~~~~", "(a) OR (b) OR (d) OR (e)"},
        {new OrRule(no('a'), no('b')), false, "ab~~", "(a) OR (b)"},
        {new AndRule(yes('a'), yes('b'), nullptr, nullptr, no('e'), nullptr, yes('g')), false, "abe~~~~",
         "(a) AND (b) AND (e) AND (g)"},
        {new AndRule(yes('a'), new NotRule(no('b'))), true, "ab~~", "(a) AND (NOT(b))"},
        {new NotRule(yes('a')), false, "a~", "NOT(a)"}};
    for (const auto& [rule, admits, journal, text] : cases) {
        EXPECT_STREQ(text, rule->toString().cStr());
        EXPECT_EQ(admits, rule->check(nullptr)) << text;
        delete rule;
        EXPECT_EQ(journal, std::exchange(journal_, ""));
    }
}
