#include "logger/writer/kml/KmlLogWriter.h"

#include <gtest/gtest.h>

#include "logger/writer/kml/KmlDocument.h"
#include "support/CountOf.h"
#include "support/MemoryStreams.h"
#include "support/SmallLog.h"

namespace {

// A writer behind the table that selects the track: it gets best values and a cycle start after them.
class KmlLogWriterTest : public ::testing::Test {
protected:
    void open(bool timestamps, bool doDepth) {
        kml_.reset(new KmlLogWriter("Whale", timestamps, doDepth));
        kml_->setOutStream(out_);
        out_.clear();
    }
    void write(const LogEntry* entry) { kml_->write(entry, nullptr); }
    void fix(double seconds, double latitude, double longitude) {
        write(log_.bestData(latitude_, seconds, latitude));
        write(log_.bestData(longitude_, seconds, longitude));
    }
    void point(double seconds, double latitude, double longitude, double depth) {
        fix(seconds, latitude, longitude);
        write(log_.bestData(depth_, seconds, depth));
        write(log_.cycle(seconds));
    }
    std::string take() { return std::exchange(out_.bytes_, ""); }

    SmallLog log_;
    DataAccess* latitude_ = log_.declareServing("latitude", "Nav.latitude", Units::DEGREE);
    DataAccess* longitude_ = log_.declareServing("longitude", "Nav.longitude", Units::DEGREE);
    DataAccess* depth_ = log_.declareServing("depth", "Depth.depth", Units::METER);
    MemoryOutStream out_;
    std::unique_ptr<KmlLogWriter> kml_;
};

const char* const LINE_3D =
    "    <Placemark>\n      <name>trajectory</name>\n      <styleUrl>#linemap</styleUrl>\n      <LineString>\n"
    "      <altitudeMode>absolute</altitudeMode>\n        <coordinates> \n";
const char* const END_LINE = "        </coordinates>\n      </LineString>\n    </Placemark>\n";

}  // namespace

// Cycles count once they move the vehicle; at the surface every one does.
TEST_F(KmlLogWriterTest, ATrackInThreeDimensions) {
    open(true, true);
    fix(0, 36.5, -122);
    write(log_.cycle(0));
    EXPECT_EQ("", take());  // no depth yet
    point(1, 36.5, -122, 10);
    EXPECT_EQ(2u, CountOf(take(), "\n-122.000000,36.500000,-10.000000\n"));  // the start and the line
    fix(2, 36.5000009, -122);                                                // 1.6e-8 rad: less than counts
    write(log_.data(latitude_, 2, 0));
    write(log_.cycle(2));
    EXPECT_EQ("", take());
    fix(2.5, 36.5000011, -122);
    write(log_.cycle(2.5));
    EXPECT_EQ("-122.000000,36.500001,-10.000000\n", take());
    fix(3, 36.5, -122);
    write(log_.bestData(depth_, 3, 0));
    write(log_.cycle(3));
    write(log_.cycle(4));
    EXPECT_EQ("-122.000000,36.500000,-0.000000\n-122.000000,36.500000,-0.000000\n", take());
    point(4.2, NAN, INFINITY, NAN);  // no numbers: where it was
    point(4.4, 36.6, NAN, -INFINITY);
    EXPECT_EQ("-122.000000,36.500000,-0.000000\n-122.000000,36.600000,-0.000000\n", take());
    write(log_.syslog(5, "two\nlines", Syslog::CRITICAL, "Nav"));
    EXPECT_EQ("", take());
    fix(6, 36.6, -122);
    write(log_.bestData(depth_, 7, NAN));
    kml_->writeFooter();
    const std::string end = take();
    EXPECT_EQ(1u, CountOf(end,
                          "     <description><![CDATA[20120601T123005 [Nav]:two#lines     ]]></description>\n"
                          "     <TimeStamp><when>2012-06-01T12:30:04Z</when></TimeStamp>\n"));
    EXPECT_EQ(1u, CountOf(end, "<when>2012-06-01T12:30:06Z</when></TimeStamp>\n      <styleUrl>#end<"));
    kml_->writeFooter();
    EXPECT_EQ("", take());
}

TEST_F(KmlLogWriterTest, CoordinatesAreWholeHoweverLong) {
    open(true, true);
    point(0, 36.5, -122, 10);
    take();
    point(1, 1e300, -1e300, 1e300);
    char depth[320];
    snprintf(depth, sizeof depth, ",%f\n", -1e300);
    const std::string line = take();
    EXPECT_EQ(line.size() - strlen(depth), line.find(depth));
    EXPECT_LT(900u, line.size());
}

TEST_F(KmlLogWriterTest, ATrackInTwoDimensions) {
    open(false, false);
    fix(0, 36.5, -122);
    write(log_.bestData(depth_, 0, 10));  // is not looked at
    write(log_.cycle(0));
    const std::string start = take();
    EXPECT_EQ(1u, CountOf(start, "      <name>start</name>\n      <styleUrl>#start</styleUrl>\n"));
    EXPECT_EQ(2u, CountOf(start, "\n-122.0000,36.5000\n"));
    fix(1, 36.50019, -122);  // 3.3e-6 rad: less than counts
    write(log_.cycle(1));
    EXPECT_EQ("", take());
    fix(2, 36.50021, -122);
    write(log_.cycle(2));
    EXPECT_EQ("-122.0000,36.5002\n", take());
    kml_->writeFooter();
    EXPECT_EQ(1u, CountOf(take(), "\n-122.000000,36.500210,0.000000\n"));
    fix(3, 36.50021, -122);
    write(log_.cycle(3));
    EXPECT_EQ(2u, CountOf(take(), "\n-122.0000,36.5002\n"));  // the next document starts there
}

TEST_F(KmlLogWriterTest, ATrackBeginsAHundredMetresFromZero) {
    for (const double metres : {99, -101}) {
        const double degrees = Units::DEGREE.getScaled(metres * Location::EARTH_RADIUS_INVERTED);
        for (const bool isNorth : {true, false}) {
            open(false, false);
            fix(0, isNorth ? degrees : 0, isNorth ? 0 : degrees);
            write(log_.cycle(0));
            EXPECT_EQ(metres == 99, take().empty()) << metres << isNorth;
        }
    }
}

TEST_F(KmlLogWriterTest, NoLineHasMoreThanTenThousandPoints) {
    open(true, true);
    for (int i = 1; i <= 9999; ++i) point(i, 36.5 + i * 1e-4, -122, 10);
    EXPECT_EQ(1u, CountOf(take(), "<LineString>"));
    point(10000, 36.5, -122, 10);
    EXPECT_EQ(END_LINE + std::string(LINE_3D) + "-122.000000,36.500000,-10.000000\n", take());
    point(10001, 36.6, -122, 10);
    EXPECT_EQ("-122.000000,36.600000,-10.000000\n", take());
}

TEST_F(KmlLogWriterTest, MessagesWaitUntilThereAreTooMany) {
    open(false, false);
    fix(0, 36.5, -122);
    write(log_.cycle(0));
    take();
    for (int i = 1; i <= 200; ++i) write(log_.syslog(i, "hello"));
    EXPECT_EQ("", take());
    write(log_.syslog(201, "hello"));
    const std::string markers = take();
    EXPECT_EQ(0u, markers.find(END_LINE));
    EXPECT_EQ(201u, CountOf(markers, "hello"));
    EXPECT_EQ("\n-122.0000,36.5000\n", markers.substr(markers.size() - 19));  // the line goes on from there
}

TEST_F(KmlLogWriterTest, EverySeverityHasItsStyle) {
    const std::pair<Syslog::Severity, std::string> styles[] = {
        {Syslog::DEBUG, "info"},          {Syslog::INFO, "info"},   {Syslog::ERROR, "error"},
        {Syslog::IMPORTANT, "important"}, {Syslog::FAULT, "fault"}, {static_cast<Syslog::Severity>(24), ""}};
    for (const auto& [severity, style] : styles) {
        open(false, false);
        fix(0, 36.5, -122);
        write(log_.syslog(1, "hello", severity));
        kml_->writeFooter();
        const std::string document = take();
        EXPECT_EQ(style.empty() ? 3u : 4u, CountOf(document, "<styleUrl>"));  // start, line and end too
        EXPECT_EQ(style.empty() ? 0u : 1u, CountOf(document, "<styleUrl>#" + style + "<")) << style;
    }
}

TEST(KmlDocumentTest, TextFromALogIsMadeSafe) {
    const std::pair<Str, std::string> cases[] = {
        {"a & b < c", "a & b < c"},
        {"a]]>b]]>", "a]]]]><![CDATA[>b]]]]><![CDATA[>"},
        {"]]]>", "]]]]]><![CDATA[>"},
        {Str("a\0b\t\x1F\x7F", 6), "a#b##\x7F"},
        {"caf\xC3\xA9 caf\xE9", "caf\xC3\xA9 caf\xEF\xBF\xBD"},
        {"\xEF\xBF\xBE\xEF\xBF\xBF\xEF\xBE\xBF", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBE\xBF"},  // two noncharacters
    };
    const KmlDocument document(false, false);
    for (const auto& [message, cdata] : cases) {
        TextBuffer text;
        document.appendMessage(text, message, Syslog::INFO, SmallLog::At(0), "1,2\n");
        const std::string begin = "    <Placemark>\n     <name><![CDATA[" + cdata + "]]></name>\n";
        EXPECT_EQ(0u, std::string(text.toStr().cStr()).find(begin)) << cdata;
    }
    TextBuffer head;
    KmlDocument::AppendHead(head, "A&<B>\n", "\"&\xFF");
    const std::string text = head.toStr().cStr();
    EXPECT_NE(std::string::npos, text.find("   <name>A&amp;&lt;B&gt;# Path</name>\n"));
    EXPECT_NE(std::string::npos, text.find("     <color>\"&amp;\xEF\xBF\xBD</color>\n     <width>2.5</width>\n"));
}
