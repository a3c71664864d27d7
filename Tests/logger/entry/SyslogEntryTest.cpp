#include "logger/entry/SyslogEntry.h"

#include <cmath>
#include <tuple>

#include "EntryFixture.h"

class SyslogEntryTest : public EntryFixture {
protected:
    void SetUp() override {
        readRecord("n code=0005 name=\"GPS\"\n");
        log_.take();
    }
    SyslogEntry message(const Str& text, Syslog::Severity severity = Syslog::IMPORTANT) {
        return SyslogEntry(text, severity, *Slate::GetName(5), timeBase_);
    }
};

TEST_F(SyslogEntryTest, AMessageIsHeaderTimeLengthAndText) {
    EXPECT_STREQ(write(message("hi")).asHex().cStr(), "BD0202046869");  // header 12 | 3 | 5 << 5 = 175
    const auto entry = read<SyslogEntry>(write(message("hi")));
    EXPECT_EQ(entry->getSeverity(), Syslog::IMPORTANT);
    EXPECT_EQ(&entry->getLoggerFacility(), Slate::GetName(5));
    EXPECT_STREQ(entry->toString(nullptr).cStr(), "2012-06-01T12:30:00.400Z,1338553800.400 [GPS](IMPORTANT): hi");
    EXPECT_STREQ(entry->toKmlString(nullptr).cStr(), "20120601T123000 [GPS]:hi");
}

TEST_F(SyslogEntryTest, ALongMessageIsCutAndReadsBackWhole) {
    const Str bytes = write(message(Str(nullptr, 70000)));
    EXPECT_STREQ(bytes.substr(0, 6).asHex().cStr(), "BD020203FFFF");
    const auto entry = read<SyslogEntry>(bytes);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->getMessage().length(), 65535u);
}

TEST_F(SyslogEntryTest, WhatHasNoSeverityOrNoFittingFacilityIsNotWritten) {
    EXPECT_TRUE(write(message("hi", Syslog::NONE)).isEmpty());
    EXPECT_TRUE(message("hi", Syslog::NONE).toString(nullptr).isEmpty());
    EXPECT_TRUE(message("hi", Syslog::NONE).toKmlString(nullptr).isEmpty());
    const CodedStr uncoded("console");
    EXPECT_TRUE(write(SyslogEntry("hi", Syslog::INFO, uncoded, timeBase_)).isEmpty());
}

TEST_F(SyslogEntryTest, BitsThatNameNoSeverityAreKept) {
    const auto entry = read(FromHex("ED 02 02 02 41"));  // header 187: severity bits 24
    ASSERT_NE(entry, nullptr);
    EXPECT_STREQ(entry->toString(nullptr).cStr(), "2012-06-01T12:30:00.400Z,1338553800.400 [GPS]((undefined)): A");
}

TEST_F(SyslogEntryTest, WhatIsNoMessageIsDropped) {
    const std::tuple<const char*, Lines, bool> cases[] = {
        {"BD 02 02 00", {}, false},  // an empty message is no entry
        {"BD 02", {"ERROR End of Binary File Reached while reading LogEntry Timestamp"}, false},
        {"BD 02 02", {"ERROR Encountered eof while reading Syslog entry length"}, false},
        {"BD 02 02 04 41", {"ERROR Encountered eof while reading Syslog message"}, false},
        {"DE 02 04 41 41", {"ERROR No LoggerFacility found for code 3"}, true},
    };
    for (const auto& [bytes, messages, error] : cases) {
        EXPECT_EQ(read(FromHex(bytes)), nullptr);
        EXPECT_EQ(log_.take(), messages);
        EXPECT_EQ(error_, error) << bytes;
    }
}

// The correction that each message brings, in seconds.
TEST_F(SyslogEntryTest, AGpsFixMovesTheTimeBase) {
    const std::pair<const char*, double> cases[] = {{"GPS fix at: 1338553801.9", 1.5},
                                                    {"GPS fix at: 1338553790", -10.4},
                                                    {"GPS fix at: 0", 0},
                                                    {"GPS fix at: 1", -1338553799.4},
                                                    {"GPS fix at: none", 0},
                                                    {"GPS fix at: inf", 0},
                                                    {"GPS fix at: nan", 0},
                                                    {"GPS fix at: 1e300", 0},
                                                    {"GPS fix at: -5", 0},
                                                    {"gps fix at: 1338553801.9", 0},
                                                    {"No GPS fix at: 1338553801.9", 0},
                                                    {"GPS fix at: ", 0}};
    for (const auto& [text, shift] : cases) {
        const Timestamp before = timeBase_ = Timestamp(1338553800, 400000);
        timeAdjust_ = Timespan(7, 0);
        const auto entry = read(write(message(text)));
        EXPECT_NEAR((timeBase_ - before).asDouble(), shift, 1e-6) << text;
        EXPECT_EQ(entry->getTimestamp(), timeBase_) << text;
        EXPECT_NEAR(timeAdjust_.asDouble(), 7 + shift, 1e-6) << text;
    }
}
