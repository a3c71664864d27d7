#include "logger/writer/approximation/VarData.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <tuple>
#include <utility>

#include "support/SmallLog.h"

namespace {

struct Point {
    double time_;   // s
    double value_;  // m
};

Point PointOf(const DataEntry& entry) {
    return {(entry.getTimestamp() - SmallLog::At(0)).asDouble(), entry.getNumber(Units::METER)};
}

// What thinning makes of a series. Passes on as the writers do: the first point, what a sample gives, and at the end
// what is pending.
std::vector<Point> Thin(const std::vector<Point>& points, float bound) {
    SmallLog log;
    DataAccess* access = log.declare("Depth.depth", Units::METER, DOUBLE8);
    std::vector<Point> kept;
    VarData series(*log.data(access, points[0].time_, points[0].value_), bound);
    const auto pass = [&] { kept.push_back(PointOf(*series.getDataEntry())); };
    pass();
    for (size_t i = 1; i < points.size(); ++i) {
        if (!series.checkNextEntry(log.data(access, points[i].time_, points[i].value_))) continue;
        EXPECT_TRUE(series.isReady());
        series.advance();
        pass();
        if (!series.wasNaN()) continue;
        series.advance();
        pass();
    }
    series.advance();
    pass();
    return kept;
}

// The points that thinning keeps, by its rule and nothing else. Slopes, and the sum of two, are single precision: near
// the corridor's edges that decides.
std::vector<Point> KeptByTheRule(const std::vector<Point>& points, float bound) {
    std::vector<Point> kept{points[0]};
    Point start = points[0], end = points[0];
    float least = NAN, most = NAN;  // of the slopes that meet every point so far
    const auto passEnd = [&](const Point& next) {
        kept.push_back(end);
        start = std::exchange(end, next);
        least = most = NAN;
    };
    for (size_t i = 1; i < points.size(); ++i) {
        const Point& next = points[i];
        const float dt = static_cast<float>(next.time_ - start.time_);
        const double d = next.value_ - start.value_;
        const float upper = dt == 0 ? NAN : static_cast<float>((d + bound) / dt);
        const float lower = dt == 0 ? NAN : static_cast<float>((d - bound) / dt);
        const float sum = upper + lower;
        const double middle = 0.5 * sum;
        if (std::isnan(next.value_)) {
            passEnd(next);
            passEnd(next);
        } else if (std::isnan(start.value_)) {
            end = next;
            passEnd(next);
        } else if (std::isnan(least)) {
            least = lower;
            most = upper;
            end = next;
        } else if (middle < least || middle > most || bound == 0) {
            passEnd(next);
        } else {
            if (lower > least) least = lower;
            if (upper < most) most = upper;
            end = next;
        }
    }
    kept.push_back(end);
    return kept;
}

std::string Text(const std::vector<Point>& points) {
    std::string text;
    char point[64];
    for (const Point& p : points) {
        snprintf(point, sizeof point, "%.9g=%.17g ", p.time_, p.value_);
        text += point;
    }
    return text;
}

const double NOT_NUMBER = std::nan("");

}  // namespace

TEST(VarDataTest, KeepsWhatTheLinesNeed) {
    const std::tuple<const char*, float, std::vector<Point>, const char*> cases[] = {
        {"one point", 1, {{0, 5}}, "0=5 0=5 "},
        {"a straight line", 1, {{0, 0}, {1, 2}, {2, 4}, {3, 6}}, "0=0 3=6 "},
        // (2, 9) leaves the corridor; the next sample takes its place untested
        {"a bend", 1, {{0, 0}, {1, 0}, {2, 9}, {3, 9}, {4, 9}}, "0=0 1=0 3=9 4=9 "},
        {"within the bound", 1, {{0, 0}, {1, 1}, {2, 0}, {3, 1}}, "0=0 3=1 "},
        {"a bound of 0", 0, {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}}, "0=0 1=1 3=3 5=5 6=6 "},
        {"no bound", std::nanf(""), {{0, 0}, {1, 9}, {2, -9}, {3, 9}}, "0=0 3=9 "},
        {"a gap", 1, {{0, 0}, {1, 0}, {2, NOT_NUMBER}, {3, 7}, {4, 7}}, "0=0 1=0 2=nan 3=7 4=7 "},
        {"a gap at the start", 1, {{0, NOT_NUMBER}, {1, 7}, {2, 7}}, "0=nan 1=7 2=7 "},
        // seen from the start, a sample at the same time has no slope: the corridor stays closed
        {"the start's time again", 1, {{0, 0}, {0, 9}, {1, 0}, {2, 0}}, "0=0 2=0 "},
        {"the end's time again", 1, {{0, 0}, {1, 0}, {1, 9}, {2, 9}}, "0=0 1=0 2=9 "},
        {"times that jump back", 1, {{5, 0}, {6, 0}, {0, 0}, {7, 0}}, "5=0 0=0 7=0 "},
        {"infinity", 1, {{0, 0}, {1, INFINITY}, {2, 0}, {3, 0}}, "0=0 1=inf 3=0 "},
    };
    for (const auto& [what, bound, points, kept] : cases) EXPECT_EQ(kept, Text(Thin(points, bound))) << what;
}

// The point is marked as best once a sample was.
TEST(VarDataTest, WorksInTheBaseUnitAndKeepsTheEntrysTypeAndMark) {
    SmallLog log;
    DataAccess* access = log.declare("Depth.depth", Units::CENTIMETER, FLOAT4);
    VarData series(*log.data(access, 0, 0), 1);
    EXPECT_FALSE(series.checkNextEntry(log.data(access, 1, 0)));
    EXPECT_FALSE(series.getDataEntry()->isBest());
    EXPECT_FALSE(series.checkNextEntry(log.bestData(access, 2, 100)));  // 1 m
    EXPECT_TRUE(series.checkNextEntry(log.data(access, 3, 500)));
    series.advance();
    EXPECT_STREQ("100.000000 cm", series.getDataEntry()->getDataValueString(nullptr, false).cStr());
    EXPECT_TRUE(series.getDataEntry()->isBest());
    EXPECT_EQ(FLOAT4, series.getDataEntry()->getDataValue()->getBinaryType());
}

// Values on a grid, which often lie on the very edge of the corridor; gaps, repeated times and times that jump back.
TEST(VarDataTest, RandomSeriesFollowTheRule) {
    for (unsigned int seed = 1; seed <= 1000; ++seed) {
        std::mt19937 random(seed);
        const auto upTo = [&random](unsigned int n) { return static_cast<int>(random() % n); };
        const float bound = std::array{0.0f, 0.1f, 0.5f, 1.0f, std::nanf("")}[seed % 5];
        std::vector<Point> points;
        double time = 100;
        for (int i = 0; i < 100; ++i) {
            time += upTo(20) == 0 ? -0.5 : 0.25 * upTo(4);
            points.push_back({time, upTo(30) == 0 ? NOT_NUMBER : 0.1 * upTo(7)});
        }
        ASSERT_EQ(Text(KeptByTheRule(points, bound)), Text(Thin(points, bound))) << "seed " << seed;
    }
}
