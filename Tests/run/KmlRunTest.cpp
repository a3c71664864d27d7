#include "RunFixture.h"

// The tracks of small logs, whole and as other programs read them.

namespace {

// A log of a vehicle that knows where it is.
class TrackLog : public DiveLog {
public:
    TrackLog() {
        latitude_ = log_.declareServing("latitude", "Nav.latitude", Units::DEGREE);
        longitude_ = log_.declareServing("longitude", "Nav.longitude", Units::DEGREE);
        depth_ = log_.declareServing("depth", "Depth.depth", Units::METER);
        add(log_.version(8));
        for (DataAccess* access : {latitude_, longitude_, depth_}) declare(access);
        add(log_.nameEntry(log_.declare("Mission.name")));
    }
    void fix(double seconds, double latitude, double longitude, double depth) {
        add(log_.bestData(latitude_, seconds, latitude));
        add(log_.bestData(longitude_, seconds, longitude));
        add(log_.bestData(depth_, seconds, depth));
    }
    // Cycles of one second with a fix each: east along a parallel, down by a metre a cycle, and a turn north in the
    // middle.
    void dive(int cycles) {
        for (int i = 0; i < cycles; ++i) {
            add(log_.cycle(i));
            fix(i + 0.5, 36.5 + 1e-4 * std::max(0, i - cycles / 2), -122 + 1e-4 * i, i);
        }
    }

private:
    DataAccess* latitude_;  // the Slate's, as are the others
    DataAccess* longitude_;
    DataAccess* depth_;
};

class KmlRunTest : public RunFixture {
protected:
    // The document that the options make of the log.
    std::string kml(const TrackLog& log, std::vector<std::string> arguments, const char* messages = "") {
        write("dive", log.bytes());
        arguments.push_back("dive");
        EXPECT_EQ(messages, MessagesIn(run(arguments)));
        EXPECT_EQ("", OutputOf("xmllint --noout " + path("dive.kml") + " 2>&1"));
        return read("dive.kml");
    }
    // What follows the styles.
    std::string body(const TrackLog& log, const std::vector<std::string>& arguments) {
        const std::string document = kml(log, arguments);
        return document.substr(document.rfind("</Style>\n") + strlen("</Style>\n"));
    }
    // The coordinates of the line that an outside reader finds first.
    std::string lineOf(const std::string& file) {
        const std::string features = OutputOf("ogrinfo -q -al " + path(file) + " 2>&1");
        const size_t line = features.find("LINESTRING");
        if (line == std::string::npos) return features;
        const size_t begin = features.find('(', line) + 1;
        return features.substr(begin, features.find(')', begin) - begin);
    }
};

#define SKIP_WITHOUT(tool) \
    if (OutputOf("command -v " tool).empty()) GTEST_SKIP() << tool " is not installed: Scripts/setup"

}  // namespace

TEST_F(KmlRunTest, AWholeDocument) {
    SKIP_WITHOUT("xmllint");
    TrackLog log;
    log.add(log.log_.cycle(0));
    log.fix(0, 0, 0, 0);  // before the receiver has a fix
    log.fix(1, 36.5, -122, 0.5);
    log.fix(2, 36.6, -122, 10);
    log.add(log.log_.syslog(3, "Started mission Survey", Syslog::IMPORTANT));
    log.add(log.log_.syslog(3.5, "nothing much"));
    log.fix(4, 36.8, -122.2, 30);
    // Interpolated: the message has a place of its own between the two fixes around it.
    EXPECT_EQ(OutputOf("cat " EXPECTED_TRACK), kml(log, {"-kivC", "Whale", "ff00ff00"}));
}

TEST_F(KmlRunTest, TheThinnedTrackKeepsItsTurns) {
    SKIP_WITHOUT("ogrinfo");
    TrackLog log;
    log.dive(101);
    kml(log, {"-k"});
    const std::string archive = OutputOf("cd " + path("") + " && unzip -tq dive.kmz");
    EXPECT_EQ("No errors detected in compressed data of dive.kmz.\n", archive);
    const std::string line = lineOf("dive.kml");
    EXPECT_EQ(line, lineOf("dive.kmz"));
    EXPECT_EQ("-122 36.5 -0,-121.9949 36.5001 -51,-121.99 36.505 -100", line);  // the bend shows a cycle later
    kml(log, {"-ki"});
    EXPECT_EQ(100u, CountOf(lineOf("dive.kml"), ","));  // 101 points
}

TEST_F(KmlRunTest, TheMinimalTrackIsFlatAndShowsFewMessages) {
    SKIP_WITHOUT("ogrinfo");
    TrackLog log;
    log.dive(11);
    for (const char* message : {"Started mission Survey", "Started mission Default", "Started mission Startup",
                                "SBIT Failed", "Failed to parse uplink", "Packet size is not right", "on fire"}) {
        log.add(log.log_.syslog(11, message, Syslog::CRITICAL));
    }
    log.add(log.log_.syslog(12, "Started mission Transect", Syslog::INFO));
    log.add(log.log_.syslog(12, "some error", Syslog::ERROR));
    const std::string document = body(log, {"-K"});
    EXPECT_EQ(3u, CountOf(document, "[Mission]:"));
    for (const char* shown : {"Started mission Survey", "Started mission Transect", "on fire"}) {
        EXPECT_EQ(1u, CountOf(document, shown)) << shown;
    }
    EXPECT_EQ(0u, CountOf(document, "altitude") + CountOf(document, "TimeStamp"));
    EXPECT_FALSE(program_.files().has("dive.kmz"));
    EXPECT_NE(std::string::npos, lineOf("dive.kml").find("-122 36.5,"));
    EXPECT_EQ(document, body(log, {"-k", "-K"}));
}

TEST_F(KmlRunTest, LogsWithoutATrackGiveAnEmptyDocument) {
    SKIP_WITHOUT("xmllint");
    TrackLog nowhere;
    nowhere.add(nowhere.log_.cycle(0));
    nowhere.fix(0.5, 0.0001, 0, 10);
    nowhere.add(nowhere.log_.cycle(1));
    EXPECT_EQ("  </Document>\n</kml>\n", body(nowhere, {"-k"}));
    TrackLog nothing;
    EXPECT_EQ("  </Document>\n</kml>\n", body(nothing, {"-ki"}));
}

// It has messages of severities that do not exist, and places off the earth.
TEST_F(KmlRunTest, TheTrackOfADamagedDiveIsDrawn) {
    synthesize("--minutes 20 --damage 200");
    run({"-k", "dive"});
    EXPECT_EQ("",
              OutputOf(SCIENCE_PYTHON " -B " PLOT_TRACK " " + path("dive.kml") + " " + path("track.png") + " 2>&1"));
    EXPECT_EQ("\x89PNG", read("track.png").substr(0, 4));
}
