#include "logger/unserialize/OutputFormat.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "io/OldFile.h"
#include "io/ZipEncoder.h"
#include "logger/rule/CompositeRules.h"
#include "logger/rule/EntryRules.h"
#include "logger/rule/SyslogRules.h"
#include "logger/unserialize/OutputBuilder.h"
#include "logger/writer/approximation/LinearApproximationLogWriter.h"
#include "logger/writer/binary/BinaryLogWriter.h"
#include "logger/writer/binary/DirectoryLogWriter.h"
#include "logger/writer/json/JsonLogWriter.h"
#include "logger/writer/kml/KmlLogWriter.h"
#include "logger/writer/matlab/HDF5LogWriter.h"
#include "logger/writer/netcdf/NetCdfLogWriter.h"
#include "logger/writer/netcdf/NetCdfTableLogWriter.h"
#include "logger/writer/table/TextTableLogWriter.h"
#include "logger/writer/text/TextLogWriter.h"

namespace {

Rule* DataRule() {
    return new TypeRule(LogEntry::DATA_LOG_ENTRY);
}

// What a table needs: values, and the cycle starts that separate its rows.
Rule* TableRule() {
    return new OrRule(DataRule(), new EventTypeRule(EventEntry::START_CYCLE));
}

void AddBinary(const OutputBuilder& outputs, const Str& filename) {
    LogWriter* const file = outputs.toFile(filename, new BinaryLogWriter(false, false));
    if (!outputs.isLimited()) {
        outputs.feed(file, nullptr);
        return;
    }
    LogWriter* const limited =
        outputs.isThinned() ? outputs.thin(file, false, true) : outputs.limitToNames(file, false);
    outputs.feed(limited, new NotRule(new TypeRule(LogEntry::SYSLOG_LOG_ENTRY)));
}

void AddCsv(const OutputBuilder& outputs, const Str& filename) {
    const RunSettings& settings = outputs.settings();
    LogWriter* const table =
        new TextTableLogWriter(",", outputs.variables().requested_, settings.hideUnits_, settings.interpolate_);
    LogWriter* const file = outputs.toFile(filename, table);
    outputs.feed(outputs.isThinned() ? outputs.thin(file, true, false) : file, TableRule());
}

// The `.dir` keeps the name under which readers look for it: by itself it is not among the files to be renamed.
void AddDirectory(const OutputBuilder& outputs, const Str& filename) {
    const RunSettings& settings = outputs.settings();
    DirectoryLogWriter* const writer = new DirectoryLogWriter(true);
    outputs.directory().setWriter(writer);
    const bool hasOwnFile =
        !settings.toStandardOutput_ && !OutputFormat::ShareFile(settings) && !IsWrittenThrough(filename.cStr());
    outputs.feed(hasOwnFile ? outputs.directory().toStagedFile(filename) : outputs.toFile(filename, writer),
                 new TypeRule(LogEntry::DIRECTORY_LOG_ENTRY));
}

void AddSyslog(const OutputBuilder& outputs, const Str& filename) {
    outputs.feed(outputs.toFile(filename, new TextLogWriter(false)),
                 new SyslogSeverityRule(outputs.settings().syslogSeverity_, true));
}

void AddText(const OutputBuilder& outputs, const Str& filename) {
    LogWriter* const file = outputs.toFile(filename, new TextLogWriter(false));
    if (!outputs.isLimited()) {
        outputs.feed(file, nullptr);
        return;
    }
    outputs.feed(outputs.isThinned() ? outputs.thin(file, false, false) : outputs.limitToNames(file, true), DataRule());
}

template <typename ArrayWriter>
void AddArrayFile(const OutputBuilder& outputs, ArrayWriter* writer, bool sendAtStartCycle, Rule* rule) {
    if (writer->isValid()) outputs.files().remember(*writer);
    outputs.feed(outputs.isThinned() ? outputs.thin(writer, sendAtStartCycle, false) : writer, rule);
}

template <bool MATLAB>
void AddHdf5(const OutputBuilder& outputs, const Str& filename) {
    const OutputVariables& variables = outputs.variables();
    AddArrayFile(outputs, new HDF5LogWriter(filename, MATLAB, variables.requested_, variables.settings_), false,
                 DataRule());
}

void AddJson(const OutputBuilder& outputs, const Str& filename) {
    const OutputVariables& variables = outputs.variables();
    LogWriter* const json =
        new JsonLogWriter(outputs.settings().formattedJson_, variables.requested_, variables.settings_);
    LogWriter* const file = outputs.toFile(filename, json);
    outputs.feed(outputs.isThinned() ? outputs.thin(file, false, false) : file, DataRule());
}

// Everything on the way of the vehicle, and messages from the severity on.
Rule* TrackRule(Syslog::Severity severity, Rule* more = nullptr) {
    return new OrRule(DataRule(), new EventTypeRule(EventEntry::START_CYCLE), new SyslogSeverityRule(severity, true),
                      more);
}

Rule* NoMessageThatBegins(const char* start) {
    return new NotRule(new SyslogStartRule(start));
}

// Few messages beside the track: missions that start, but not those that run by default, and no routine failures.
Rule* MinimalTrackRule(Syslog::Severity severity) {
    return new AndRule(TrackRule(severity, new SyslogStartRule("Started mission")),
                       NoMessageThatBegins("Started mission Default"), NoMessageThatBegins("Started mission Startup"),
                       NoMessageThatBegins("SBIT Failed"), NoMessageThatBegins("Failed to parse uplink"),
                       NoMessageThatBegins("Packet size is not"));
}

// Null when the track is to be written and no more.
std::unique_ptr<FileEncoder> NewArchiver(const OutputBuilder& outputs, const Str& filename) {
    if (outputs.settings().toStandardOutput_ || IsWrittenThrough(filename.cStr())) return nullptr;
    std::unique_ptr<ZipEncoder> archiver = std::make_unique<ZipEncoder>(".kmz");
    return outputs.files().mayWrite(archiver->companionOf(filename), true) ? std::move(archiver) : nullptr;
}

// Stands a table of the vehicle's positions in front of a KML writer; a flat track has no depths.
LogWriter* SelectTrack(LogWriter* writer, bool flat, bool interpolate) {
    const RequestedVariables position(KmlLogWriter::GetKmlCount(flat), KmlLogWriter::GetKmlArgs(flat),
                                      KmlLogWriter::GetKmlUnits(flat), KmlLogWriter::GetKmlErrors(flat));
    if (interpolate) return new TableLogWriter(writer, position, true);
    return new LinearApproximationLogWriter(writer, position, true, false);
}

void AddKml(const OutputBuilder& outputs, const Str& filename) {
    const RunSettings& settings = outputs.settings();
    const bool minimal = settings.minimalKml_;
    KmlLogWriter* const kml = new KmlLogWriter(settings.vehicleName_, !minimal, !minimal);
    if (settings.kmlColor_ != nullptr) kml->setColor(settings.kmlColor_);
    LogWriter* const file = outputs.toFile(filename, kml, minimal ? nullptr : NewArchiver(outputs, filename));
    outputs.feed(SelectTrack(file, minimal, settings.interpolate_),
                 minimal ? MinimalTrackRule(settings.minimalKmlSeverity_) : TrackRule(settings.textSeverity_));
}

// Thinned series have times of their own, which the table then shows; settings go with whole series only.
void AddNetCdfTable(const OutputBuilder& outputs, const Str& filename) {
    const OutputVariables& variables = outputs.variables();
    const bool thinned = outputs.isThinned();
    const RequestedVariables none;
    NetCdfTableLogWriter* const table =
        new NetCdfTableLogWriter(filename, false, variables.requested_, thinned || outputs.settings().interpolate_,
                                 thinned ? none : variables.settings_);
    AddArrayFile(outputs, table, true, TableRule());
}

void AddNetCdf(const OutputBuilder& outputs, const Str& filename) {
    const OutputVariables& variables = outputs.variables();
    AddArrayFile(outputs, new NetCdfLogWriter(filename, true, variables.requested_, variables.settings_), true,
                 TableRule());
}

const unsigned int ARRAYS = OutputFormat::ALL_NAMES | OutputFormat::PLAIN_FILE;

}  // namespace

// Of outputs that share a file the last one stays.
constexpr OutputFormat OutputFormat::ALL[] = {
    {BINARY_OUTPUT, ".bin", NOTHING, AddBinary},
    {CSV_OUTPUT, ".csv", ALL_NAMES, AddCsv},
    {DIRECTORY_OUTPUT, ".dir", NOTHING, AddDirectory},
    {SYSLOG_OUTPUT, ".log", NOTHING, AddSyslog},
    {TEXT_OUTPUT, ".asc", NOTHING, AddText},
    {HDF5_OUTPUT, ".h5", ARRAYS, AddHdf5<false>},
    {MATLAB_OUTPUT, ".mat", ARRAYS, AddHdf5<true>},
    {JSON_OUTPUT, ".js", ALL_NAMES, AddJson},
    {KML_OUTPUT, ".kml", NOTHING, AddKml},
    {NETCDF_TABLE_OUTPUT, ".nc", ARRAYS, AddNetCdfTable},
    {NETCDF_OUTPUT, ".nc4", ARRAYS, AddNetCdf},
};

static constexpr unsigned int KindsInTable() {
    unsigned int kinds = 0;
    for (const OutputFormat& format : OutputFormat::ALL) kinds |= 1u << format.kind_;
    return kinds;
}
static_assert(KindsInTable() == (1u << OUTPUT_KINDS) - 1, "every kind of output has its row");

bool OutputFormat::AnyNeedsNames(const RunSettings& settings) {
    return std::any_of(std::begin(ALL), std::end(ALL), [&settings](const OutputFormat& format) {
        return settings.writes(format.kind_) && format.needs(ALL_NAMES);
    });
}

bool OutputFormat::ShareFile(const RunSettings& settings) {
    const auto sharing = std::count_if(std::begin(ALL), std::end(ALL), [&settings](const OutputFormat& format) {
        return settings.writes(format.kind_) && !format.isStream(settings);
    });
    return settings.outputNameGiven_ && sharing > 1;
}
