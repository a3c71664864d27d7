#include "logger/writer/kml/KmlDocument.h"

#include <cstring>

#include "utils/Utf8.h"

namespace {

const char* const NAMESPACE = "http://www.opengis.net/kml/2.2";
const char* const SCHEMA_INSTANCE = "http://www.w3.org/2001/XMLSchema-instance";
const char* const SCHEMA = "http://schemas.opengis.net/kml/2.2.0/kml22beta.xsd";
const char* const ICON_SERVER = "http://maps.google.com";
const char* const OPEN_PLACEMARK = "    <Placemark>\n";
const char* const CLOSE_PLACEMARK = "    </Placemark>\n";
const char CDATA_END[] = "]]>";
const char CDATA_END_SPLIT[] = "]]]]><![CDATA[>";  // ends the section between the brackets and begins another
const unsigned char FIRST_PRINTABLE = 32;

struct IconStyle {
    const char* id_;
    const char* color_;
    const char* icon_;
};
const IconStyle MARKER_STYLES[] = {
    {"start", "7fffffff", "/mapfiles/kml/paddle/grn-stars.png"},
    {"end", "7fffffff", "/mapfiles/kml/paddle/X.png"},
};
const IconStyle MESSAGE_STYLES[] = {
    {"info", "3fffffff", "/mapfiles/kml/shapes/info.png"},
    {"error", "7fffffff", "/mapfiles/kml/shapes/caution.png"},
    {"important", "ffffffff", "/mapfiles/kml/shapes/flag.png"},
    {"fault", "ffffffff", "/mapfiles/kml/shapes/hospitals.png"},
    {"critical", "ffffffff", "/mapfiles/kml/shapes/firedept.png"},
};

// Null for a number that is no severity.
const char* StyleOf(Syslog::Severity severity) {
    switch (severity) {
        case Syslog::NONE:
        case Syslog::DEBUG:
        case Syslog::INFO:
            return "info";
        case Syslog::ERROR:
            return "error";
        case Syslog::IMPORTANT:
            return "important";
        case Syslog::CRITICAL:
            return "critical";
        case Syslog::FAULT:
            return "fault";
        default:
            return nullptr;
    }
}

void AppendIconStyle(TextBuffer& text, const IconStyle& style) {
    text.append("   <Style id=\"").append(style.id_).append("\">\n    <IconStyle>\n     <color>");
    text.append(style.color_).append("</color>\n     <colorMode>normal</colorMode>\n     <Icon><href>");
    text.append(ICON_SERVER).append(style.icon_);
    text.append("</href></Icon>\n    </IconStyle>\n   </Style>\n");
}

void AppendLinePair(TextBuffer& text, const char* key) {
    text.append("      <Pair>\n        <key>").append(key);
    text.append("</key>\n        <styleUrl>#line</styleUrl>\n      </Pair>\n");
}

void AppendLineStyles(TextBuffer& text, const Str& escapedColor) {
    text.append("   <Style id=\"line\">\n    <LineStyle>\n     <color>").append(escapedColor);
    text.append("</color>\n     <width>2.5</width>\n    </LineStyle>\n   </Style>\n");
    text.append("   \t<StyleMap id=\"linemap\">\n");
    AppendLinePair(text, "normal");
    AppendLinePair(text, "highlight");
    text.append("    </StyleMap>\n");
}

// Control characters have no place in XML and show as '#'; nor have the noncharacters U+FFFE and U+FFFF, EF BF BE and
// EF BF BF in UTF-8, which become U+FFFD.
Str Printable(const Str& text) {
    Str printable = Utf8::Sanitized(text);
    for (size_t i = 0; i < printable.length(); ++i) {
        const unsigned char c = static_cast<unsigned char>(printable[i]);
        if (c < FIRST_PRINTABLE) printable.setChar(i, '#');
        if (c >= 0xBE && i >= 2 && memcmp(printable.data() + i - 2, "\xEF\xBF", 2) == 0) printable.setChar(i, '\xBD');
    }
    return printable;
}

Str Escaped(const Str& plain) {
    const Str text = Printable(plain);
    TextBuffer escaped;
    for (size_t i = 0; i < text.length(); ++i) {
        switch (text[i]) {
            case '&':
                escaped.append("&amp;");
                break;
            case '<':
                escaped.append("&lt;");
                break;
            case '>':
                escaped.append("&gt;");
                break;
            default:
                escaped.append(text[i]);
        }
    }
    return escaped.toStr();
}

void AppendCdata(TextBuffer& text, const Str& message) {
    const Str plain = Printable(message);
    size_t from = 0;
    for (size_t end = plain.find(CDATA_END); end != Str::NO_POS; end = plain.find(CDATA_END, from)) {
        text.append(plain.data() + from, end - from).append(CDATA_END_SPLIT);
        from = end + sizeof CDATA_END - 1;
    }
    text.append(plain.data() + from, plain.length() - from);
}

}  // namespace

void KmlDocument::AppendHead(TextBuffer& text, const Str& vehicleName, const Str& color) {
    text.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"").append(NAMESPACE);
    text.append("\"\n     xmlns:xsi=\"").append(SCHEMA_INSTANCE);
    text.append("\"\n     xsi:schemaLocation=\"").append(NAMESPACE).append(' ').append(SCHEMA).append("\">\n");
    text.append("  <Document>\n   <name>").append(Escaped(vehicleName)).append(" Path</name>\n");
    for (const IconStyle& style : MARKER_STYLES) AppendIconStyle(text, style);
    AppendLineStyles(text, Escaped(color));
    for (const IconStyle& style : MESSAGE_STYLES) AppendIconStyle(text, style);
}

void KmlDocument::AppendEnd(TextBuffer& text) {
    text.append("  </Document>\n</kml>\n");
}

void KmlDocument::appendMarker(TextBuffer& text, const char* name, const Timestamp& t, const Str& coordinates) const {
    text.append(OPEN_PLACEMARK);
    if (timestamps_) {
        AppendWhen(text, t);
    } else {
        text.append("      <name>").append(name).append("</name>\n");
    }
    text.append("      <styleUrl>#").append(name).append("</styleUrl>\n");
    appendPoint(text, coordinates);
}

void KmlDocument::appendMessage(TextBuffer& text, const Str& message, Syslog::Severity severity, const Timestamp& t,
                                const Str& coordinates) const {
    text.append(OPEN_PLACEMARK);
    text.append(timestamps_ ? "     <description><![CDATA[" : "     <name><![CDATA[");
    AppendCdata(text, message);
    text.append(timestamps_ ? "     ]]></description>\n" : "]]></name>\n");
    if (timestamps_) AppendWhen(text, t);
    if (const char* style = StyleOf(severity)) text.append("      <styleUrl>#").append(style).append("</styleUrl>\n");
    appendPoint(text, coordinates);
}

void KmlDocument::openLine(TextBuffer& text) const {
    text.append(OPEN_PLACEMARK).append("      <name>trajectory</name>\n      <styleUrl>#linemap</styleUrl>\n");
    text.append("      <LineString>\n");
    appendAltitudeMode(text);
    text.append("        <coordinates> \n");
}

void KmlDocument::CloseLine(TextBuffer& text) {
    text.append("        </coordinates>\n      </LineString>\n").append(CLOSE_PLACEMARK);
}

void KmlDocument::appendPoint(TextBuffer& text, const Str& coordinates) const {
    text.append("     <Point>\n");
    appendAltitudeMode(text);
    text.append("      <coordinates>\n").append(coordinates);
    text.append("      </coordinates>\n     </Point>\n").append(CLOSE_PLACEMARK);
}

void KmlDocument::appendAltitudeMode(TextBuffer& text) const {
    if (altitudes_) text.append("      <altitudeMode>absolute</altitudeMode>\n");
}

void KmlDocument::AppendWhen(TextBuffer& text, const Timestamp& t) {
    char when[Timestamp::TEXT_ROOM];
    text.append("     <TimeStamp><when>").append(t.toString(when, sizeof when, 0)).append("</when></TimeStamp>\n");
}
