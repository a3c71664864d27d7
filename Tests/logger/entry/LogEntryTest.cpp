#include "logger/entry/LogEntry.h"

#include "EntryFixture.h"
#include "logger/entry/EventEntry.h"
#include "logger/entry/TimeBounds.h"

class LogEntryTest : public EntryFixture {
protected:
    // The bytes of a time so long after the base.
    Str timeBytes(const Timespan& delta, bool flag, Logger::TimePrecisionType precision) {
        MemoryOutStream out;
        const unsigned int n = EventEntry(timeBase_ + delta).writeTimestamp(timeBase_, flag, out, precision);
        EXPECT_EQ(n, out.bytes_.size());
        return out.str();
    }
    // Microseconds from the base to the time that the bytes say, and their flag.
    std::pair<long long, bool> timeOf(const Str& bytes, Logger::TimePrecisionType precision) {
        MemoryInStream in(bytes);
        Timestamp t = timeBase_;
        bool flag = false;
        EXPECT_TRUE(LogEntry::ReadTimestamp(t, flag, in, log_, precision));
        return {(t - timeBase_).asMicros(), flag};
    }
};

// 10 ms after the time base, in both packed forms and as old logs have it.
TEST_F(LogEntryTest, TimesAreWrittenAndReadByPrecisionAndVersion) {
    struct Case {
        unsigned short version_;
        Logger::TimePrecisionType precision_;
        bool flag_;
        const char* bytes_;
        bool flagRead_;
        long long readMicros_;
    };
    const Case cases[] = {
        {8, Logger::TIME_PRECISION_MICROS, true, "0B7102", true, 10000},    // 20001
        {8, Logger::TIME_PRECISION_MICROS, false, "037102", false, 10000},  // 20000
        {8, Logger::TIME_PRECISION_MILLIS, true, "2A", true, 10240},        // 10 / 1024 s, doubled, plus 1
        {4, Logger::TIME_PRECISION_MILLIS, false, "28", false, 10240},
        {3, Logger::TIME_PRECISION_MILLIS, false, "833801", true, 10000},  // 10000, whatever the precision and flag
        {3, Logger::TIME_PRECISION_MICROS, true, "833801", true, 10000},
    };
    for (const Case& c : cases) {
        slate_.version() = c.version_;
        const Str bytes = timeBytes(Timespan(0, 10000), c.flag_, c.precision_);
        EXPECT_STREQ(bytes.asHex().cStr(), c.bytes_);
        EXPECT_EQ(timeOf(bytes, c.precision_), std::make_pair(c.readMicros_, c.flagRead_)) << c.bytes_;
    }
    EXPECT_EQ(timeOf(FromHex("03 71 02"), Logger::TIME_PRECISION_MICROS), std::make_pair(20000LL, true));
}

// Around 64 s and 128 s, and 2^34 and 2^35 s: the compact forms that fit there by a look at some of their bits lose the
// sign of others.
TEST_F(LogEntryTest, EveryTimeReadsBackAsItWasWritten) {
    const timeval deltas[] = {{63, 999999},  {64, 0},          {71, 999999},       {72, 0},  {-65, 0},
                              {-73, 0},      {85, 50496},      {127, 999},         {128, 0}, {-129, 5},
                              {1L << 34, 0}, {-(1L << 35), 0}, {(1L << 34) - 1, 7}};
    for (const timeval& delta : deltas) {
        for (const bool flag : {false, true}) {
            const Timespan span(delta);
            const Str bytes = timeBytes(span, flag, Logger::TIME_PRECISION_MICROS);
            EXPECT_EQ(timeOf(bytes, Logger::TIME_PRECISION_MICROS), std::make_pair(span.asMicros(), flag))
                << delta.tv_sec;
        }
    }
}

TEST_F(LogEntryTest, TimesBefore1970OrAMonthAheadAreImpossible) {
    const Timestamp now = Timestamp::Now();
    EXPECT_TRUE(TimeBounds::Holds(Timestamp::EPOCH_START_TIME));
    EXPECT_TRUE(TimeBounds::Holds(now + Timespan(TimeBounds::MAX_AHEAD - 100, 0)));
    EXPECT_FALSE(TimeBounds::Holds(now + Timespan(TimeBounds::MAX_AHEAD + 100, 0)));
    EXPECT_FALSE(TimeBounds::Holds(Timestamp(-1, 999999)));
    EXPECT_FALSE(TimeBounds::Holds(Timestamp::NOT_SET_TIME));
}
