#include "logger/rule/EntryRules.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/SmallLog.h"

class EntryRulesTest : public testing::Test {
protected:
    SmallLog log_;
    DataAccess* depth_ = log_.declare("Depth.depth", Units::METER);
    DataAccess* depthReader_ = log_.declareReader("Navigation", depth_);
    LogEntry* written_ = log_.data(depth_, 1, 2.5);
    LogEntry* read_ = log_.data(depthReader_, 1, 2.5);
    LogEntry* cycle_ = log_.cycle(0);
    LogEntry* running_ = log_.running("Depth", 2, 3);
    LogEntry* message_ = log_.syslog(3, "hello");
    LogEntry* version_ = log_.version(8);
};

TEST_F(EntryRulesTest, EachAdmitsItsOwnKindAloneAndSaysSo) {
    TypeRule data(LogEntry::DATA_LOG_ENTRY);
    EventTypeRule cycleStart(EventEntry::START_CYCLE);
    EventTypeRule action(EventEntry::COMPONENT_ACTION);
    DataWriteRule writes(true);
    DataWriteRule reads(false);
    struct Case {
        Rule& rule_;
        std::vector<LogEntry*> admitted_;
        const char* text_;
    } cases[] = {
        {data, {written_, read_}, "type=DATA"},
        {cycleStart, {cycle_}, "eventType=START_CYCLE"},
        {action, {running_}, "eventType=COMPONENT_ACTION"},
        {writes, {written_}, "dataWrite=true"},
        {reads, {read_}, "dataWrite=false"},
    };
    for (const Case& c : cases) {
        EXPECT_STREQ(c.text_, c.rule_.toString().cStr());
        for (LogEntry* entry : {written_, read_, cycle_, running_, message_, version_}) {
            const bool expected = std::count(c.admitted_.begin(), c.admitted_.end(), entry) == 1;
            EXPECT_EQ(expected, c.rule_.check(entry)) << c.text_ << " of " << entry->toString(nullptr).cStr();
            EXPECT_EQ(entry->getType() == c.admitted_[0]->getType(), c.rule_.canAdmit(entry->getType())) << c.text_;
        }
    }
}
