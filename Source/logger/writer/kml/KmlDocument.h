#pragma once

#include "data/Syslog.h"
#include "utils/Str.h"
#include "utils/TextBuffer.h"
#include "utils/Timestamp.h"

// The texts of a KML 2.2 track document. Each operation appends to the caller's buffer; what comes from a log is made
// safe for XML here.
class KmlDocument {
public:
    // timestamps: markers carry a TimeStamp instead of a name. altitudes: places have an altitude, taken as absolute.
    KmlDocument(bool timestamps, bool altitudes) : timestamps_(timestamps), altitudes_(altitudes) {}

    // color: aabbggrr of the track's line.
    static void AppendHead(TextBuffer& text, const Str& vehicleName, const Str& color);
    static void AppendEnd(TextBuffer& text);  // of the document
    // "start" or "end": both the name and the style. coordinates: a line "longitude,latitude[,altitude]\n".
    void appendMarker(TextBuffer& text, const char* name, const Timestamp& t, const Str& coordinates) const;
    // A marker in the style of the severity, if there is one. The message is its description, or its name where markers
    // carry no times.
    void appendMessage(TextBuffer& text, const Str& message, Syslog::Severity severity, const Timestamp& t,
                       const Str& coordinates) const;
    void openLine(TextBuffer& text) const;    // a placemark with a LineString, up to its coordinates
    static void CloseLine(TextBuffer& text);  // from behind the last coordinates

private:
    void appendPoint(TextBuffer& text, const Str& coordinates) const;
    void appendAltitudeMode(TextBuffer& text) const;
    static void AppendWhen(TextBuffer& text, const Timestamp& t);

    const bool timestamps_;
    const bool altitudes_;
};
