#include "logger/unserialize/OutputAssembly.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "data/Log.h"
#include "io/OldFile.h"
#include "io/ZipEncoder.h"
#include "logger/engine/LogEngine.h"
#include "logger/rule/CompositeRules.h"
#include "logger/rule/EntryRules.h"
#include "logger/rule/SyslogRules.h"
#include "logger/unserialize/Inputs.h"
#include "logger/writer/FileLogWriter.h"
#include "logger/writer/FilterLogWriter.h"
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

// Of outputs that share a file the last one stays.
const OutputAssembly::Output OutputAssembly::OUTPUTS[] = {
    {BINARY_OUTPUT, ".bin", &OutputAssembly::addBinary},
    {CSV_OUTPUT, ".csv", &OutputAssembly::addCsv},
    {DIRECTORY_OUTPUT, ".dir", &OutputAssembly::addDirectory},
    {SYSLOG_OUTPUT, ".log", &OutputAssembly::addSyslog},
    {TEXT_OUTPUT, ".asc", &OutputAssembly::addText},
    {HDF5_OUTPUT, ".h5", &OutputAssembly::addHdf5},
    {MATLAB_OUTPUT, ".mat", &OutputAssembly::addMatlab},
    {JSON_OUTPUT, ".js", &OutputAssembly::addJson},
    {KML_OUTPUT, ".kml", &OutputAssembly::addKml},
    {NETCDF_TABLE_OUTPUT, ".nc", &OutputAssembly::addNetCdfTable},
    {NETCDF_OUTPUT, ".nc4", &OutputAssembly::addNetCdf},
};

// Opened by name, also in a run to standard output, by libraries that go back and forth in them.
static const OutputKinds ARRAY_FILES(1u << HDF5_OUTPUT | 1u << MATLAB_OUTPUT | 1u << NETCDF_TABLE_OUTPUT |
                                     1u << NETCDF_OUTPUT);

static Rule* DataRule() {
    return new TypeRule(LogEntry::DATA_LOG_ENTRY);
}

// What a table needs: values, and the cycle starts that separate its rows.
static Rule* TableRule() {
    return new OrRule(DataRule(), new EventTypeRule(EventEntry::START_CYCLE));
}

void OutputAssembly::assemble() {
    const bool isNamed = settings_.outputNameGiven_ && !settings_.toStandardOutput_;
    if (isNamed && settings_.outputName_.isEmpty()) {
        complain("No output name is given");
        return;
    }
    if (isNameShared()) complain("Several outputs are written to " + settings_.outputName_);
    for (const Output& output : OUTPUTS) {
        if (settings_.writes(output.kind_)) addOutput(output);
    }
}

bool OutputAssembly::isNameShared() const {
    const OutputKinds sharing = settings_.toStandardOutput_ ? settings_.outputs_ & ARRAY_FILES : settings_.outputs_;
    return settings_.outputNameGiven_ && sharing.count() > 1;
}

void OutputAssembly::addOutput(const Output& output) {
    const Str filename = settings_.outputFilename(output.extension_);
    const bool isArray = ARRAY_FILES.test(output.kind_);
    const bool isStream = settings_.toStandardOutput_ && !isArray;
    if (isStream || mayWrite(filename, isArray)) (this->*output.add_)(filename);
}

// An output never replaces the log that it is made of.
bool OutputAssembly::mayWrite(const Str& filename, bool needsPlainFile) const {
    const bool isInput = inputs_.contains(filename);
    const bool isUnfit = needsPlainFile && IsWrittenThrough(filename.cStr());
    if (!isInput && !isUnfit) return true;
    complain("The output " + filename + " is not written, " +
             (isInput ? "it is an input of this run" : "its format needs a plain file"));
    return false;
}

// Something that is written through stays what it is, and where.
void OutputAssembly::remember(HasFilename& writer) {
    const Str& name = writer.getFilename();
    if (IsWrittenThrough(name.cStr())) return;
    for (unsigned int i = 0; i < files_.size(); ++i) {
        if (files_.at(i)->name_ != name) continue;
        files_.at(i)->outcome_ = writer.getOutcome();
        return;
    }
    files_.push(new File{name, writer.getOutcome()});
}

void OutputAssembly::addBinary(const Str& filename) {
    LogWriter* const file = toFile(filename, new BinaryLogWriter(false, false));
    if (!isLimited()) {
        engine_.addAssociation(file, nullptr);
        return;
    }
    LogWriter* const limited = isThinned() ? thin(file, false, true) : limitToNames(file, false);
    engine_.addAssociation(limited, new NotRule(new TypeRule(LogEntry::SYSLOG_LOG_ENTRY)));
}

void OutputAssembly::addCsv(const Str& filename) {
    LogWriter* const table =
        new TextTableLogWriter(",", variables_.count_, variables_.names_.get(), variables_.units_.get(),
                               settings_.hideUnits_, settings_.interpolate_);
    LogWriter* const file = toFile(filename, table);
    engine_.addAssociation(isThinned() ? thin(file, true, false) : file, TableRule());
}

// The `.dir` keeps the name under which readers look for it: by itself it is not among the files to be renamed.
void OutputAssembly::addDirectory(const Str& filename) {
    directoryWriter_ = new DirectoryLogWriter(true);
    const bool hasOwnFile = !settings_.toStandardOutput_ && !isNameShared() && !IsWrittenThrough(filename.cStr());
    engine_.addAssociation(hasOwnFile ? toStagedFile(filename, directoryWriter_) : toFile(filename, directoryWriter_),
                           new TypeRule(LogEntry::DIRECTORY_LOG_ENTRY));
}

LogWriter* OutputAssembly::toStagedFile(const Str& filename, LogWriter* writer) {
    directoryFile_ = std::make_unique<StagedFile>(filename);
    FileLogWriter* const file = new FileLogWriter(directoryFile_->name(), writer, false, nullptr);
    file->setFilename(filename);
    directoryOutcome_ = file->getOutcome();
    if (!file->valid()) directoryFile_.reset();
    return file;
}

// A directory that is cut short, or that is none, would spoil every later run on its log: the one before stays.
void OutputAssembly::placeDirectory() {
    const std::unique_ptr<StagedFile> file = std::move(directoryFile_);
    if (file == nullptr) return;
    if (!directoryOutcome_->isWhole()) {
        complain("The output " + file->place() + " is incomplete and is not kept");
    } else if (!hasDirectory_ && access(file->place().cStr(), F_OK) == 0) {
        complain("The file " + file->place() + " is not replaced, no directory was read");
    } else if (!file->putInPlace()) {
        complain("Could not rename " + file->name() + " to " + file->place() + " due to " + strerror(errno));
    }
}

void OutputAssembly::addSyslog(const Str& filename) {
    engine_.addAssociation(toFile(filename, new TextLogWriter(false)),
                           new SyslogSeverityRule(settings_.syslogSeverity_, true));
}

void OutputAssembly::addText(const Str& filename) {
    LogWriter* const file = toFile(filename, new TextLogWriter(false));
    if (!isLimited()) {
        engine_.addAssociation(file, nullptr);
        return;
    }
    engine_.addAssociation(isThinned() ? thin(file, false, false) : limitToNames(file, true), DataRule());
}

void OutputAssembly::addHdf5(const Str& filename) {
    addArrayFile(newHdf5(filename, false), false, DataRule());
}

void OutputAssembly::addMatlab(const Str& filename) {
    addArrayFile(newHdf5(filename, true), false, DataRule());
}

HDF5LogWriter* OutputAssembly::newHdf5(const Str& filename, bool matlab) const {
    return new HDF5LogWriter(filename, matlab, variables_.count_, variables_.names_.get(), variables_.units_.get(),
                             variables_.settingCount_, variables_.settings_.get());
}

void OutputAssembly::addJson(const Str& filename) {
    LogWriter* const json =
        new JsonLogWriter(settings_.formattedJson_, variables_.count_, variables_.names_.get(), variables_.units_.get(),
                          variables_.settingCount_, variables_.settings_.get());
    LogWriter* const file = toFile(filename, json);
    engine_.addAssociation(isThinned() ? thin(file, false, false) : file, DataRule());
}

// Everything on the way of the vehicle, and messages from the severity on.
static Rule* TrackRule(Syslog::Severity severity, Rule* more = nullptr) {
    return new OrRule(DataRule(), new EventTypeRule(EventEntry::START_CYCLE), new SyslogSeverityRule(severity, true),
                      more);
}

static Rule* NoMessageThatBegins(const char* start) {
    return new NotRule(new SyslogStartRule(start));
}

// Few messages beside the track: missions that start, but not those that run by default, and no routine failures.
static Rule* MinimalTrackRule(Syslog::Severity severity) {
    return new AndRule(TrackRule(severity, new SyslogStartRule("Started mission")),
                       NoMessageThatBegins("Started mission Default"), NoMessageThatBegins("Started mission Startup"),
                       NoMessageThatBegins("SBIT Failed"), NoMessageThatBegins("Failed to parse uplink"),
                       NoMessageThatBegins("Packet size is not"));
}

void OutputAssembly::addKml(const Str& filename) {
    const bool minimal = settings_.minimalKml_;
    KmlLogWriter* const kml = new KmlLogWriter(settings_.vehicleName_, !minimal, !minimal);
    if (settings_.kmlColor_ != nullptr) kml->setColor(settings_.kmlColor_);
    LogWriter* const file = toFile(filename, kml, minimal ? nullptr : newArchiver(filename));
    engine_.addAssociation(selectTrack(file), minimal ? MinimalTrackRule(settings_.minimalKmlSeverity_)
                                                      : TrackRule(settings_.textSeverity_));
}

// Null when the track is to be written and no more.
std::unique_ptr<FileEncoder> OutputAssembly::newArchiver(const Str& filename) const {
    if (settings_.toStandardOutput_ || IsWrittenThrough(filename.cStr())) return nullptr;
    std::unique_ptr<ZipEncoder> archiver = std::make_unique<ZipEncoder>(".kmz");
    return mayWrite(archiver->companionOf(filename), true) ? std::move(archiver) : nullptr;
}

// Stands a table of the vehicle's positions in front of a KML writer. The tables only read their lists.
LogWriter* OutputAssembly::selectTrack(LogWriter* writer) const {
    const bool flat = settings_.minimalKml_;
    const int count = KmlLogWriter::GetKmlCount(flat);
    char** const names = const_cast<char**>(KmlLogWriter::GetKmlArgs(flat));
    char** const units = const_cast<char**>(KmlLogWriter::GetKmlUnits(flat));
    if (settings_.interpolate_) return new TableLogWriter(writer, count, names, units, true);
    return new LinearApproximationLogWriter(writer, count, names, units, KmlLogWriter::GetKmlErrors(flat), true, false);
}

// Thinned series have times of their own, which the table then shows; settings go with whole series only.
void OutputAssembly::addNetCdfTable(const Str& filename) {
    NetCdfTableLogWriter* const table = new NetCdfTableLogWriter(
        filename, false, variables_.count_, variables_.names_.get(), variables_.units_.get(),
        isThinned() || settings_.interpolate_, isThinned() ? 0 : variables_.settingCount_, variables_.settings_.get());
    addArrayFile(table, true, TableRule());
}

void OutputAssembly::addNetCdf(const Str& filename) {
    NetCdfLogWriter* const arrays =
        new NetCdfLogWriter(filename, true, variables_.count_, variables_.names_.get(), variables_.units_.get(),
                            variables_.settingCount_, variables_.settings_.get());
    addArrayFile(arrays, true, TableRule());
}

template <typename ArrayWriter>
void OutputAssembly::addArrayFile(ArrayWriter* writer, bool sendAtStartCycle, Rule* rule) {
    if (writer->isValid()) remember(*writer);
    engine_.addAssociation(isThinned() ? thin(writer, sendAtStartCycle, false) : writer, rule);
}

LogWriter* OutputAssembly::toFile(const Str& filename, LogWriter* writer, std::unique_ptr<FileEncoder> encoder) {
    if (settings_.toStandardOutput_) return new FileLogWriter(stdout, writer);
    FileLogWriter* const file = new FileLogWriter(filename, writer, false, encoder.release());
    if (file->valid()) remember(*file);
    return file;
}

LogWriter* OutputAssembly::limitToNames(LogWriter* writer, bool passCycleStarts) const {
    return new FilterLogWriter(writer, variables_.count_, variables_.names_.get(), variables_.units_.get(),
                               passCycleStarts, 0, nullptr);
}

LogWriter* OutputAssembly::thin(LogWriter* writer, bool sendAtStartCycle, bool makeDirEntries) const {
    return new LinearApproximationLogWriter(writer, variables_.count_, variables_.names_.get(), variables_.units_.get(),
                                            variables_.errors_.get(), sendAtStartCycle, makeDirEntries);
}

void OutputAssembly::writeDirectory() {
    hasDirectory_ = hasDirectory_ || log_.isDirectoryRead();
    const bool entriesBringIt = !settings_.isDirectoryOnly() && settings_.missionName_.isEmpty();
    if (directoryWriter_ != nullptr && !entriesBringIt) directoryWriter_->writeHeader();
}
