#include "logger/rule/CompositeRules.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

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
    std::string take() { return std::exchange(journal_, ""); }

    std::string journal_;
};
}  // namespace

TEST_F(CompositeRulesTest, OrAsksInOrderUntilOneAdmits) {
    EXPECT_TRUE(OrRule(no('a'), no('b'), nullptr, yes('d'), yes('e')).check(nullptr));
    EXPECT_EQ("abd~~~~", take());
    EXPECT_FALSE(OrRule(no('a'), no('b')).check(nullptr));
    EXPECT_EQ("ab~~", journal_);
}

TEST_F(CompositeRulesTest, AndAsksInOrderUntilOneRefuses) {
    EXPECT_FALSE(AndRule(yes('a'), yes('b'), nullptr, nullptr, no('e'), nullptr, yes('g')).check(nullptr));
    EXPECT_EQ("abe~~~~", take());
    EXPECT_TRUE(AndRule(yes('a'), yes('b')).check(nullptr));
    EXPECT_EQ("ab~~", journal_);
}

TEST_F(CompositeRulesTest, NotAdmitsWhatItsChildRefuses) {
    EXPECT_TRUE(NotRule(no('a')).check(nullptr));
    EXPECT_FALSE(NotRule(yes('b')).check(nullptr));
    EXPECT_EQ("a~b~", journal_);
}

TEST_F(CompositeRulesTest, TextsShowTheTree) {
    EXPECT_STREQ("(a) OR (b) OR (e)", OrRule(no('a'), no('b'), nullptr, nullptr, no('e')).toString().cStr());
    EXPECT_STREQ("(a) AND (NOT(b))", AndRule(no('a'), new NotRule(no('b'))).toString().cStr());
}
