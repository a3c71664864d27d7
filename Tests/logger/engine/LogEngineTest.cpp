#include "logger/engine/LogEngine.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "logger/entry/EventEntry.h"
#include "logger/entry/SyslogEntry.h"
#include "support/Counted.h"

typedef std::vector<std::string> Calls;

// Notes every call, with its name, in a list that it shares with other writers.
class NamedWriter : public LogWriter, private Counted {
public:
    NamedWriter(const char* name, Calls& calls) : name_(name), calls_(calls) {}
    ~NamedWriter() override { note("end"); }

    unsigned int write(const LogEntry* entry, const Unit*) override {
        note(LogEntry::TypeToString(entry->getType()));
        if (echo_ != nullptr) {
            echo_->syslog("again", Syslog::INFO);
            echo_ = nullptr;
        }
        return 1;
    }
    void endCycle() override { note("endCycle"); }
    unsigned int writeFooter() override {
        note("footer");
        return 0;
    }
    void resetInputs() override { note("reset"); }

    const Logger* echo_ = nullptr;  // told once, from inside a write

private:
    void note(const char* what) { calls_.push_back(name_ + " " + what); }

    const std::string name_;
    Calls& calls_;
};

class TypeOnly : public Rule, private Counted {
public:
    explicit TypeOnly(LogEntry::Type type) : type_(type) {}
    bool check(const LogEntry* entry) override { return entry->getType() == type_; }
    Str toString() const override { return "type"; }

private:
    const LogEntry::Type type_;
};

class LogEngineTest : public ::testing::Test {
protected:
    NamedWriter* writer(const char* name) { return new NamedWriter(name, calls_); }
    Calls take() { return std::exchange(calls_, {}); }

    Calls calls_;
    const CodedStr facility_{"GPS"};
    EventEntry cycle_{Timestamp(100, 0)};
    SyslogEntry message_{"hi", Syslog::INFO, facility_, Timestamp(100, 0)};
};

TEST_F(LogEngineTest, EntriesAreOfferedInOrderWhereTheRuleHolds) {
    LogEngine engine;
    engine.addAssociation(writer("a"), nullptr);
    engine.addAssociation(writer("b"), new TypeOnly(LogEntry::SYSLOG_LOG_ENTRY));
    engine.processEntry(&cycle_);
    engine.processEntry(&message_);
    EXPECT_EQ(take(), (Calls{"a EVENT", "a SYSLOG", "b SYSLOG"}));
}

TEST_F(LogEngineTest, ACycleStartEndsTheCycleOfThoseThatGotSomething) {
    LogEngine engine;
    engine.addAssociation(writer("a"), new TypeOnly(LogEntry::SYSLOG_LOG_ENTRY));
    engine.addAssociation(writer("b"), new TypeOnly(LogEntry::DATA_LOG_ENTRY));
    engine.processEntry(&message_);
    engine.processEntry(&cycle_);
    engine.processEntry(&cycle_);
    EXPECT_EQ(take(), (Calls{"a SYSLOG", "a endCycle"}));
}

TEST_F(LogEngineTest, InactiveWritersAndRulesBlock) {
    LogAssociation association(writer("a"), new TypeOnly(LogEntry::SYSLOG_LOG_ENTRY));
    EXPECT_FALSE(association.matchAndProcess(nullptr));
    association.getWriter()->deactivate();
    EXPECT_FALSE(association.matchAndProcess(&message_));
    association.getWriter()->activate();
    association.getRule()->deactivate();
    EXPECT_FALSE(association.matchAndProcess(&message_));
    association.getRule()->activate();
    EXPECT_TRUE(association.matchAndProcess(&message_));
    EXPECT_EQ(take(), Calls{"a SYSLOG"});
}

TEST_F(LogEngineTest, EveryFooterComesBeforeTheFirstEndAndOnlyOnce) {
    LogEngine engine;
    engine.addAssociation(writer("a"), new TypeOnly(LogEntry::SYSLOG_LOG_ENTRY));
    engine.addAssociation(writer("b"), nullptr);
    engine.resetInputs();
    engine.uninitialize();
    engine.uninitialize();
    EXPECT_EQ(take(), (Calls{"a reset", "b reset", "a footer", "b footer", "a end", "b end"}));
    EXPECT_EQ(Counted::Live_, 0);
}

TEST_F(LogEngineTest, ASharedWriterLivesUntilItsLastHolderIsGone) {
    NamedWriter* shared = writer("a");
    shared->addParent();
    {
        LoggerAssociationDeque associations;
        associations.add(shared, nullptr);
        LogAssociation* const second = associations.add(writer("b"), nullptr);
        second->setWriter(shared);
        EXPECT_EQ(take(), Calls{"b end"});
        associations.remove(shared);
        EXPECT_EQ(associations.count(), 1u);
    }
    EXPECT_EQ(take(), Calls{});
    LogWriter::Release(shared);
    EXPECT_EQ(take(), Calls{"a end"});
}

TEST_F(LogEngineTest, MessagesWaitInTheQueueAndThoseOfTheWritersFollow) {
    LogEngine engine;
    const Logger logger("unserialize", &engine);
    NamedWriter* const console = writer("a");
    console->echo_ = &logger;
    engine.addAssociation(console, nullptr);
    logger.syslog("first", Syslog::INFO);
    EXPECT_EQ(take(), Calls{});
    engine.processQueue(Timespan::ZERO_TIMESPAN);
    EXPECT_EQ(take(), (Calls{"a SYSLOG", "a SYSLOG"}));
}

TEST_F(LogEngineTest, ABorrowedQueueKeepsWhatWasNotDelivered) {
    LogQueue queue;
    {
        LogEngine engine(queue);
        engine.queueEntry(new SyslogEntry(message_));
    }
    EXPECT_NE(queue.peek(), nullptr);
}
