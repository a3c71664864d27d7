#pragma once

#include "data/Location.h"
#include "data/Syslog.h"
#include "logger/engine/LogWriter.h"
#include "logger/writer/kml/KmlDocument.h"
#include "utils/FlexArray.h"

class DataEntry;
class SyslogEntry;

// Draws the vehicle's track as a KML 2.2 document: a start marker, the trajectory in LineStrings of at most 10,000
// points, a marker for each syslog message where it was logged, and an end marker. It reads the best values of the
// universals latitude, longitude and, in 3D, depth; a cycle start after them makes a point. A table writer in front
// selects these and sends the cycle starts.
class KmlLogWriter : public LogWriter {
public:
    // What the table writer in front is to select, its units, and its error bounds in each unit's base unit. Depth
    // comes first, so that 2D uses the same tables from their second row.
    static constexpr int KML_COUNT = 3;
    static const char* const KmlArgs_[KML_COUNT];
    static const char* const KmlUnits_[KML_COUNT];
    static const float KmlErrors_[KML_COUNT];
    static const Location ZERO_LOCATION;  // latitude 0, longitude 0: what a receiver without a fix reports
    // The rows of the tables that count; twoD: without depth. All are borrowed and live as long as the process.
    static int GetKmlCount(bool twoD) { return KML_COUNT - FirstRow(twoD); }
    static const char* const* GetKmlArgs(bool twoD) { return KmlArgs_ + FirstRow(twoD); }
    static const char* const* GetKmlUnits(bool twoD) { return KmlUnits_ + FirstRow(twoD); }
    static const float* GetKmlErrors(bool twoD) { return KmlErrors_ + FirstRow(twoD); }

    // emitTimestamps: markers carry their time instead of a name. doDepth: 3D, with the negated depth as altitude.
    KmlLogWriter(const Str& vehicleName, bool emitTimestamps, bool doDepth);

    void setColor(const char* color) { color_ = color; }  // aabbggrr of the track's line; borrowed
    unsigned int writeHeader() override;                  // the head of the document, once for each file
    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    unsigned int writeFooter() override;  // the end of the track and of the document; once
    // Ends the LineString, writes the queued messages as markers and, unless coordinates is null, goes on with the
    // track there.
    unsigned int writeSyslogItems(const Str* coordinates);

private:
    struct SyslogItem {
        Timestamp timestamp_;  // of the last fix when the message arrived
        Str coordinates_;
        Syslog::Severity severity_;
        Str message_;
    };
    // One angle of the position: radians, NaN before the first.
    struct Angle {
        bool take(double radians, double threshold);

        double value_;        // the newest
        double counted_;      // the last that counted as new
        bool isNew_ = false;  // since the last point
    };

    static int FirstRow(bool twoD) { return twoD ? 1 : 0; }
    static Angle NoAngle();

    void takeFix(const DataEntry& entry);
    bool takeQuantity(const DataEntry& entry);
    void lookForFirstLocation();
    bool isLocated() const { return haveFirstLocation_ && (!doDepth_ || haveFirstDepth_); }
    bool hasMoved() const { return latitude_.isNew_ || longitude_.isNew_ || haveNewDepth_ || depth_ == 0; }
    Str beginPoint(TextBuffer& text);
    Str coordinates(unsigned int angleDecimals, bool withAltitude) const;
    void queueMessage(const SyslogEntry& entry, const Str& point);
    void appendItems(TextBuffer& text);
    unsigned int put(const TextBuffer& text);

    // As this log knows them.
    const ElementURI& latitudeName_ = log_.getUniversal(UniversalURI::LATITUDE);
    const ElementURI& longitudeName_ = log_.getUniversal(UniversalURI::LONGITUDE);
    const ElementURI& depthName_ = log_.getUniversal(UniversalURI::DEPTH);
    const Str vehicleName_;
    const KmlDocument document_;
    FlexArray<SyslogItem*> syslogItems_;  // owned, waiting to be written
    const bool doDepth_;
    bool haveFirstLocation_ = false;  // a fix away from latitude 0, longitude 0 was seen
    bool haveFirstDepth_ = false;
    bool haveNewDepth_ = false;   // since the last point
    bool started_ = false;        // the start marker and a LineString's opening are written
    Timestamp lastTimestamp_;     // of the last point
    Timestamp currentTimestamp_;  // of the newest fix or depth
    unsigned int lineCount_ = 0;  // track points
    Angle latitude_;
    Angle longitude_;
    double depth_;       // metres, NaN before the first
    const char* color_;  // borrowed
};
