#include "logger/engine/LogEngine.h"

#include <gtest/gtest.h>

#include <utility>

#include "logger/entry/EventEntry.h"
#include "logger/entry/SyslogEntry.h"
#include "logger/rule/EntryRules.h"
#include "support/JournalWriter.h"

namespace {

// Tells a logger something once, from inside a write.
class EchoWriter : public JournalWriter {
public:
    EchoWriter(std::string& journal, const Logger& logger) : JournalWriter(journal), logger_(&logger) {}
    unsigned int write(const LogEntry* entry, const Unit* unit) override {
        if (const Logger* const logger = std::exchange(logger_, nullptr)) logger->syslog("again", Syslog::INFO);
        return JournalWriter::write(entry, unit);
    }

private:
    const Logger* logger_;  // borrowed
};

class LogEngineTest : public ::testing::Test {
protected:
    JournalWriter* writer(const char* name) { return new JournalWriter(calls_, 1, name); }
    static Rule* only(LogEntry::Type type) { return new TypeRule(type); }
    std::string take() { return std::exchange(calls_, ""); }

    std::string calls_;
    const CodedStr facility_{"GPS"};
    EventEntry cycle_{Timestamp(100, 0)};
    SyslogEntry message_{"hi", Syslog::INFO, facility_, Timestamp(100, 0)};
};

}  // namespace

TEST_F(LogEngineTest, ACycleStartEndsTheCycleOfThoseThatGotSomething) {
    LogEngine engine;
    engine.addAssociation(writer("a:"), only(LogEntry::SYSLOG_LOG_ENTRY));
    engine.addAssociation(writer("b:"), only(LogEntry::DATA_LOG_ENTRY));
    engine.processEntry(&message_);
    for (int i = 0; i < 2; ++i) engine.processEntry(&cycle_);
    EXPECT_EQ("a:entry a:endCycle ", take());
}

TEST_F(LogEngineTest, InactiveWritersAndRulesBlock) {
    LogAssociation association(writer(""), only(LogEntry::SYSLOG_LOG_ENTRY));
    EXPECT_FALSE(association.matchAndProcess(nullptr));
    association.getWriter()->deactivate();
    EXPECT_FALSE(association.matchAndProcess(&message_));
    association.getWriter()->activate();
    association.getRule()->deactivate();
    EXPECT_FALSE(association.matchAndProcess(&message_));
    association.getRule()->activate();
    EXPECT_TRUE(association.matchAndProcess(&message_));
    EXPECT_EQ("entry ", take());
}

TEST_F(LogEngineTest, EveryFooterComesBeforeTheFirstEndAndOnlyOnce) {
    LogEngine engine;
    for (const char* name : {"a:", "b:"}) engine.addAssociation(writer(name), nullptr);
    engine.resetInputs();
    engine.uninitialize();
    engine.uninitialize();
    EXPECT_EQ("a:resetInputs b:resetInputs a:footer b:footer a:deleted b:deleted ", take());
}

TEST_F(LogEngineTest, ASharedWriterLivesUntilItsLastHolderIsGone) {
    JournalWriter* shared = writer("a:");
    shared->addParent();
    {
        LoggerAssociationDeque associations;
        associations.add(shared, nullptr);
        LogAssociation* const second = associations.add(writer("b:"), nullptr);
        second->setWriter(shared);
        EXPECT_EQ("b:deleted ", take());
        associations.remove(shared);
        EXPECT_EQ(1u, associations.count());
    }
    EXPECT_EQ("", take());
    LogWriter::Release(shared);
    EXPECT_EQ("a:deleted ", take());
}

TEST_F(LogEngineTest, MessagesWaitInTheQueueAndThoseOfTheWritersFollow) {
    LogEngine engine;
    const Logger logger("unserialize", &engine);
    engine.addAssociation(new EchoWriter(calls_, logger), nullptr);
    logger.syslog("first", Syslog::INFO);
    EXPECT_EQ("", take());
    engine.processQueue(Timespan::ZERO_TIMESPAN);
    EXPECT_EQ("entry entry ", take());
}

TEST_F(LogEngineTest, ALimitLeavesTheRestToTheNextEngineOfTheQueue) {
    LogQueue queue;
    for (int i = 0; i < 4; ++i) queue.push(new SyslogEntry(message_));
    const std::pair<int, const char*> limits[] = {{-1, "entry "}, {3600, "footer deleted entry entry entry "}};
    for (const auto& [seconds, calls] : limits) {
        LogEngine engine(queue);
        engine.addAssociation(writer(""), nullptr);
        engine.processQueue(Timespan(seconds, 0));
        EXPECT_EQ(calls, take());
    }
}
