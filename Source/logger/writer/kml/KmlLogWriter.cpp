#include "logger/writer/kml/KmlLogWriter.h"

#include <cmath>
#include <limits>

#include "logger/entry/DataEntry.h"
#include "logger/entry/EventEntry.h"
#include "logger/entry/SyslogEntry.h"
#include "units/Units.h"

const char* const KmlLogWriter::KmlArgs_[KML_COUNT] = {"depth", "latitude", "longitude"};
const char* const KmlLogWriter::KmlUnits_[KML_COUNT] = {"meter", "degree", "degree"};
const float KmlLogWriter::KmlErrors_[KML_COUNT] = {0.5f, 8.7266464e-08f, 8.7266464e-08f};
const Location KmlLogWriter::ZERO_LOCATION(Units::DEGREE, 0, 0);

static const char* const DEFAULT_COLOR = "ff0055ff";
static const double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();
static const double NEW_ANGLE_3D = 1.8e-8;  // radians that count as movement
static const double NEW_ANGLE_2D = 3.5e-6;
static const double AWAY_FROM_ZERO = 100.0;  // metres from latitude 0, longitude 0 that make a usable fix
static const unsigned int DECIMALS_3D = 6;   // of a degree
static const unsigned int DECIMALS_2D = 4;
static const unsigned int MAX_ITEMS = 200;      // queued messages; more are written at once
static const unsigned int LINE_POINTS = 10000;  // of one LineString

KmlLogWriter::KmlLogWriter(const Str& vehicleName, bool emitTimestamps, bool doDepth)
    : vehicleName_(vehicleName),
      document_(emitTimestamps, doDepth),
      syslogItems_(true),
      doDepth_(doDepth),
      lastTimestamp_(Timestamp::NOT_SET_TIME),
      currentTimestamp_(Timestamp::NOT_SET_TIME),
      latitude_(NoAngle()),
      longitude_(NoAngle()),
      depth_(NO_NUMBER),
      color_(DEFAULT_COLOR) {}

unsigned int KmlLogWriter::writeHeader() {
    if (wroteHeader_ || !isValid()) return 0;
    wroteHeader_ = true;
    wroteFooter_ = false;
    TextBuffer text;
    KmlDocument::AppendHead(text, vehicleName_, color_);
    return put(text);
}

unsigned int KmlLogWriter::write(const LogEntry* entry, const Unit*) {
    if (entry == nullptr || !isValid()) return 0;
    const MutexLocker lock(writeMutex_);
    if (entry->getType() == LogEntry::DATA_LOG_ENTRY) {
        takeFix(static_cast<const DataEntry&>(*entry));
        return 0;
    }
    const bool isMessage = entry->getType() == LogEntry::SYSLOG_LOG_ENTRY;
    const bool isCycle = EventEntry::IsCycleStart(*entry);
    if (!isLocated() || !(isMessage || (isCycle && hasMoved()))) return 0;
    TextBuffer text;
    const Str point = beginPoint(text);
    if (isCycle) text.append(point);
    unsigned int bytes = put(text);
    if (isCycle) return bytes;
    queueMessage(static_cast<const SyslogEntry&>(*entry), point);
    if (syslogItems_.size() > MAX_ITEMS) bytes += writeSyslogItems(&point);
    return bytes;
}

unsigned int KmlLogWriter::writeSyslogItems(const Str* coordinates) {
    TextBuffer text;
    KmlDocument::CloseLine(text);
    appendItems(text);
    if (coordinates != nullptr) {
        document_.openLine(text);
        text.append(*coordinates);
    }
    return put(text);
}

unsigned int KmlLogWriter::writeFooter() {
    if (wroteFooter_) return 0;
    wroteFooter_ = true;
    wroteHeader_ = false;
    unsigned int bytes = 0;
    if (isValid()) {
        TextBuffer text;
        if (started_) {
            bytes += writeSyslogItems(nullptr);
            lastTimestamp_ = currentTimestamp_;
            document_.appendMarker(text, "end", lastTimestamp_, coordinates(DECIMALS_3D, true));
        }
        KmlDocument::AppendEnd(text);
        bytes += put(text);
    }
    started_ = false;
    latitude_.counted_ = longitude_.counted_ = NO_NUMBER;
    return bytes;
}

// True when the angle is a number, of degrees too; it counts as new when it is far enough from the last that did.
bool KmlLogWriter::Angle::take(double radians, double threshold) {
    if (!std::isfinite(Units::DEGREE.getScaled(radians))) return false;
    value_ = radians;
    if (std::isnan(counted_) || std::fabs(counted_ - radians) > threshold) {
        isNew_ = true;
        counted_ = radians;
    }
    return true;
}

KmlLogWriter::Angle KmlLogWriter::NoAngle() {
    return {NO_NUMBER, NO_NUMBER, false};
}

void KmlLogWriter::takeFix(const DataEntry& entry) {
    if (!entry.isBest()) return;
    if (takeQuantity(entry)) currentTimestamp_ = entry.getTimestamp();
    if (!haveFirstLocation_) lookForFirstLocation();
}

bool KmlLogWriter::takeQuantity(const DataEntry& entry) {
    const unsigned short code = entry.getUniversalCode();
    if (code >= ElementURI::NUM_CODES) return false;
    const double threshold = doDepth_ ? NEW_ANGLE_3D : NEW_ANGLE_2D;
    if (code == latitudeName_.getCode()) return latitude_.take(entry.getNumber(Units::RADIAN), threshold);
    if (code == longitudeName_.getCode()) return longitude_.take(entry.getNumber(Units::RADIAN), threshold);
    if (!doDepth_ || code != depthName_.getCode()) return false;
    const double metres = entry.getNumber(Units::METER);
    if (!std::isfinite(metres)) return false;
    depth_ = metres;
    haveFirstDepth_ = haveNewDepth_ = true;
    return true;
}

void KmlLogWriter::lookForFirstLocation() {
    const Location here(Units::RADIAN, latitude_.value_, longitude_.value_);
    haveFirstLocation_ = here.getDistance(ZERO_LOCATION) > AWAY_FROM_ZERO;
}

// What a new track point needs before it: the start marker, or the end of a full LineString. The result is the point.
Str KmlLogWriter::beginPoint(TextBuffer& text) {
    latitude_.isNew_ = longitude_.isNew_ = haveNewDepth_ = false;
    lastTimestamp_ = currentTimestamp_;
    Str point = coordinates(doDepth_ ? DECIMALS_3D : DECIMALS_2D, doDepth_);
    if (!started_) {
        document_.appendMarker(text, "start", lastTimestamp_, point);
        document_.openLine(text);
        started_ = true;
    }
    if (++lineCount_ % LINE_POINTS == 0) {
        KmlDocument::CloseLine(text);
        document_.openLine(text);
    }
    return point;
}

Str KmlLogWriter::coordinates(unsigned int angleDecimals, bool withAltitude) const {
    TextBuffer text;
    text.appendWhole(Units::DEGREE.getScaled(longitude_.value_), angleDecimals).append(',');
    text.appendWhole(Units::DEGREE.getScaled(latitude_.value_), angleDecimals);
    if (withAltitude) text.append(',').appendWhole(std::isnan(depth_) ? 0 : -depth_, DECIMALS_3D);
    return text.append('\n').toStr();
}

void KmlLogWriter::queueMessage(const SyslogEntry& entry, const Str& point) {
    syslogItems_.push(new SyslogItem{currentTimestamp_, point, entry.getSeverity(), entry.toKmlString(nullptr)});
}

void KmlLogWriter::appendItems(TextBuffer& text) {
    for (unsigned int i = 0; i < syslogItems_.size(); ++i) {
        const SyslogItem& item = *syslogItems_.at(i);
        document_.appendMessage(text, item.message_, item.severity_, item.timestamp_, item.coordinates_);
    }
    syslogItems_.clear();
}

unsigned int KmlLogWriter::put(const TextBuffer& text) {
    return text.length() == 0 ? 0
                              : static_cast<unsigned int>(logStream_->write(text.data(), text.length()).bytesWritten());
}
