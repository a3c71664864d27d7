#include "utils/Timestamp.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <tuple>

#include "utils/Timespan.h"

namespace {

Timestamp At(long seconds, long microseconds) {
    return Timestamp(timeval{seconds, microseconds});
}

std::string Text(const Timestamp& t, int size, int decimals) {
    char buf[100];
    memset(buf, '#', sizeof buf);
    t.toString(buf, size, decimals);
    EXPECT_EQ('#', buf[size]) << "written past the end";
    return buf;
}

std::string PrintedFraction(long microseconds, int decimals) {
    char text[16];
    snprintf(text, sizeof text, "%.*f", decimals, static_cast<double>(static_cast<float>(microseconds) / 1e6f));
    return strchr(text, '.');
}

std::string PrintedDate(long seconds, size_t room) {
    char text[64];
    struct tm t;
    if (gmtime_r(&seconds, &t) == nullptr) return "";
    return std::string(text, strftime(text, room, "%Y-%m-%dT%H:%M:%S", &t));
}

}  // namespace

// Logs are printed with three decimals.
TEST(TimestampTest, FractionsAreRoundedAsPrintingRoundsThem) {
    char text[Timestamp::TEXT_ROOM];
    for (int decimals = 1; decimals <= 6; ++decimals) {
        const long step = decimals == 3 ? 7 : 97;
        for (long microseconds = 0; microseconds < 1 << 20; microseconds += step) {
            At(1000000000, microseconds).toString(text, sizeof text, decimals);
            ASSERT_EQ("2001-09-09T01:46:40" + PrintedFraction(microseconds, decimals) + "Z", text) << microseconds;
        }
    }
}

TEST(TimestampTest, DatesFollowTheCalendarAndTheRoom) {
    const long day = 86400;
    for (long seconds : {0L, -1L, day - 1, day, -day, -day - 1, 951782400L, 4102444799L, 253402300799L, 253402300800L,
                         -62135596801L, -100000000000L, 1L << 43, -(1L << 43), LONG_MAX, LONG_MIN, 0L}) {
        for (int size : {8, 20, 21, 22, 31, 79}) {
            EXPECT_EQ(PrintedDate(seconds, static_cast<size_t>(size) - 1) + "Z", Text(At(seconds, 0), size, 0));
        }
        EXPECT_EQ(PrintedDate(seconds, 75) + ".410Z", Text(At(seconds, 410000), 79, 3));
    }
}

TEST(TimestampTest, TextForms) {
    const Timestamp t(2012, 6, 1, 12, 30, 5);
    EXPECT_EQ("2012-06-01T12:30:05Z", Text(t, 31, -1));
    EXPECT_EQ("2012-06-01T12:30:05.000000Z", Text(t, 31, 9));
    EXPECT_STREQ("20120601T123005", t.toSmallString().cStr());
    EXPECT_STREQ("201206011230", t.toSmallerString().cStr());
    EXPECT_STREQ("2012060112", t.toDateHourString().cStr());
    EXPECT_STREQ("", Timestamp(12012, 6, 1, 12, 30, 5).toSmallString().cStr());
    EXPECT_EQ("2012-06-01T12:30:05.0", Text(t, 22, 1));  // one short: the Z is cut
}

TEST(TimestampTest, Parsing) {
    for (const char* text : {"2012-06-01T12:30:00", "20120601T123000", "20120601123000", "06/01/2012 12:30:00",
                             "06-01-2012T123000", "2012/06/01T12:30:00", "2012-06-01T12:30:00.x"}) {
        EXPECT_EQ(At(1338553800, 0), Timestamp(text)) << text;
    }
    EXPECT_EQ(At(1338553800, 123456), Timestamp("2012-06-01 12:30:00.1234567Z"));
    EXPECT_EQ(At(-1, 0), Timestamp("1969-12-31T23:59:59"));
    for (const char* text : {"", "x", "-", "201", "2012", "2012-06-01", "2012-13-01T00:00:00", "2012/06-01T00:00:00",
                             "2012-06-01T25:00:00", "T", "12:30:00", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(Timestamp::NOT_SET_TIME, Timestamp(text));
    }
}

TEST(TimestampTest, Doubles) {
    EXPECT_EQ(At(1, 500000), Timestamp(1.5));
    EXPECT_EQ(At(-2, 499999), Timestamp(-1.5));
    EXPECT_EQ(1338553856.0, At(1338553800, 250000).asFloat());  // single precision
    EXPECT_EQ(1.5, At(1, 500000).asFloat());
    for (const double x : {-32445540.0, 1e19, -1e19, double(INFINITY), double(-INFINITY), double(NAN)})
        EXPECT_EQ(Timestamp::NOT_SET_TIME, Timestamp(x)) << x;
}

TEST(TimestampTest, PackedForms) {
    EXPECT_EQ(1548576, At(1, 500000).asCompactMicros());
    EXPECT_EQ(At(0, 0xFFFFF), Timestamp::FromMicros(0xFFFFF));  // kept as it comes
    EXPECT_EQ(977, At(0, 999999).asCompactMillis());
    EXPECT_EQ(At(-1, 1023 * 1024), Timestamp::FromMillis(-1));
    EXPECT_EQ(-1001, At(-2, 999999).asMillis());

    Timestamp t = At(10, 900000);
    t.addFromMicros(At(1, 200000).asCompactMicros());
    EXPECT_EQ(At(12, 100000), t);
    t.addFromMillis(1536);
    EXPECT_EQ(At(13, 624288), t);
    At(LONG_MAX, 999999).asCompactMicros();  // hostile times wrap around instead of overflowing
    t.addFromMicros(LLONG_MIN);
}

TEST(TimestampTest, ArithmeticNormalises) {
    const Timestamp t = At(10, 300000);
    EXPECT_EQ(At(12, 100000), t + Timespan(1, 800000));
    EXPECT_EQ(At(-1, 999999), Timestamp::EPOCH_START_TIME - Timespan(0, 1));
    EXPECT_EQ(At(-2, 951425), Timestamp::EPOCH_START_TIME - Timespan(timeval{0, 0xFFFFF}));
    EXPECT_EQ(Timespan(0, 400000), t - At(9, 900000));
}

TEST(TimestampTest, RoundsToSeconds) {
    const std::tuple<double, int, long> rows[] = {{29.0004, 60, 0}, {29.0006, 60, 60}, {30, 60, 60},
                                                  {29.0005, 60, 0}, {5.000501, 1, 6},  {5.9, 0, 5}};
    for (const auto& [seconds, n, expected] : rows) {
        Timestamp t(seconds);
        t.round(n);
        EXPECT_EQ(expected, t.asTimeT()) << seconds << " to " << n;
    }
}

TEST(TimestampTest, TheClockCanBeShifted) {
    Timestamp::SetNow(Timestamp(2001, 1, 1, 0, 0, 0));
    const Timestamp shifted = Timestamp::Now();
    Timestamp real;
    real.setToRealCurrentTime();
    Timestamp::SetNow(real);
    EXPECT_STREQ("2001010100", shifted.toDateHourString().cStr());
    EXPECT_LT(Timestamp::Now() - real, Timespan::Minutes(1));
}
