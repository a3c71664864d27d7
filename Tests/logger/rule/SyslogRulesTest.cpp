#include "logger/rule/SyslogRules.h"

#include <gtest/gtest.h>

#include <tuple>

#include "support/SmallLog.h"

static const Syslog::Severity SEVERITIES[] = {Syslog::DEBUG,     Syslog::INFO,     Syslog::ERROR,
                                              Syslog::IMPORTANT, Syslog::CRITICAL, Syslog::FAULT};

TEST(SyslogSeverityRuleTest, CriticalAndFaultStandApartFromTheOrder) {
    // Equal ones, and those or greater: of each severity from DEBUG to FAULT, Y where it is admitted.
    const std::tuple<Syslog::Severity, const char*, const char*> cases[] = {
        {Syslog::DEBUG, "Y-----", "YYYYYY"},    {Syslog::INFO, "-Y----", "-YYYYY"},
        {Syslog::ERROR, "--Y---", "--YYYY"},    {Syslog::IMPORTANT, "---Y--", "---YYY"},
        {Syslog::CRITICAL, "----Y-", "----Y-"}, {Syslog::FAULT, "-----Y", "----YY"},
        {Syslog::NONE, "------", "------"}};
    SmallLog log;
    for (const auto& [wanted, expectedEqual, expectedOrGreater] : cases) {
        std::string equal, orGreater;
        for (Syslog::Severity severity : SEVERITIES) {
            const LogEntry* entry = log.syslog(0, "text", severity);
            equal += SyslogSeverityRule(wanted, false).check(entry) ? 'Y' : '-';
            orGreater += SyslogSeverityRule(wanted, true).check(entry) ? 'Y' : '-';
        }
        EXPECT_EQ(expectedEqual, equal) << wanted;
        EXPECT_EQ(expectedOrGreater, orGreater) << wanted;
    }
    EXPECT_FALSE(SyslogSeverityRule(Syslog::DEBUG, true).check(log.cycle(0)));
    EXPECT_STREQ("severity=FAULT", SyslogSeverityRule(Syslog::FAULT, true).toString().cStr());
}

TEST(SyslogStartRuleTest, ComparesBytesFromTheBeginning) {
    SmallLog log;
    SyslogStartRule rule("GPS fix");
    EXPECT_TRUE(rule.check(log.syslog(0, "GPS fix at: 1")));
    EXPECT_TRUE(rule.check(log.syslog(0, "GPS fix")));
    for (const char* other : {"gps fix at: 1", "GPS fi", "", "a GPS fix"})
        EXPECT_FALSE(rule.check(log.syslog(0, other)));
    EXPECT_FALSE(rule.check(log.cycle(0)));
    EXPECT_STREQ("start=GPS fix", rule.toString().cStr());
}
