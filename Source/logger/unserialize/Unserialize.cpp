#include "logger/unserialize/Unserialize.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include "data/Slate.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/reader/BinaryLogReader.h"
#include "logger/reader/FileLogReader.h"
#include "logger/rule/SyslogRules.h"
#include "logger/unserialize/CommandLine.h"
#include "logger/unserialize/OutputNaming.h"
#include "logger/unserialize/Progress.h"
#include "logger/writer/DirectoryLogWriter.h"
#include "logger/writer/TextLogWriter.h"
#include "utils/MemoryReserve.h"

int Unserialize::Run(int argc, char** argv) {
    RunSettings settings;
    const CommandLine::Result result = CommandLine(argc, argv).parse(settings);
    return result == CommandLine::RUN ? Unserialize(settings).convert() : result;
}

int Unserialize::convert() {
    reportComplaints();
    listVariables();
    outputs_.assemble();
    outputs_.collectFilenames(outputFilenames_);
    readInputs();
    engine_.uninitialize();
    showMessages();
    nameOutputs();
    sayDone();
    return isMemoryUsedUp_ ? MEMORY_USED_UP : CommandLine::RUN;
}

// A failed write is an error to report, not a signal to die of: a file that grows too large, and a reader of standard
// output that has gone while files are still to be finished.
static void KeepRunningWhenWritesFail(const RunSettings& settings) {
    signal(SIGXFSZ, SIG_IGN);
    if (!settings.toStandardOutput_) signal(SIGPIPE, SIG_IGN);
}

Unserialize::Unserialize(RunSettings& settings)
    : settings_(settings),
      console_(stdout, false),
      logger_("unserialize", &consoleEngine_),
      engine_(queue_),
      inputs_(settings),
      outputs_(settings, inputs_, engine_, logger_),
      outputFilenames_(true),
      timeCorrection_(settings.localTimeOnly_ ? Timespan::INVALID_TIMESPAN : Timespan::ZERO_TIMESPAN),
      newestLogVersion_(DirectoryEntry::CurrentLogVersion_),
      versionLeft_(newestLogVersion_) {
    KeepRunningWhenWritesFail(settings);
    consoleEngine_.addAssociation(new TextLogWriter(console_, false),
                                  new SyslogSeverityRule(settings.quiet_ ? Syslog::ERROR : Syslog::DEBUG, true));
    Slate::SetLogger(&logger_);
    if (settings.priorityListGiven_) FileLogReader::SetPriorityList(&settings.priorityList_);
}

// Leaves the process as it was found. The writers, whose entries point into the Slate, are gone by now.
Unserialize::~Unserialize() {
    FileLogReader::SetPriorityList(nullptr);
    DirectoryLogWriter::Uninitialize();
    Slate::ClearDirectory();
    Slate::Uninitialize();
    Slate::SetLogger(nullptr);
    DirectoryEntry::CurrentLogVersion_ = newestLogVersion_;
}

void Unserialize::reportComplaints() {
    for (unsigned int i = 0; i < settings_.complaints_.size(); ++i) {
        logger_.syslog(*settings_.complaints_.at(i), Syslog::ERROR);
    }
    showMessages();
}

// Tables need to know every variable before the first entry. Other outputs learn names as they come; with a single
// input they are given what its side file, or in a run that writes one the log itself, says.
void Unserialize::listVariables() {
    if (settings_.variables_.count_ > 0) return;
    if (settings_.hasTableOutput()) {
        variableList_.readFrom(inputs_, settings_, consoleEngine_);
        variableList_.giveTo(settings_.variables_);
    } else if (inputs_.count() == 1) {
        Inputs::ReadDirectoryAhead(inputs_.at(0), settings_);
    }
}

void Unserialize::readInputs() {
    if (inputs_.count() == 0) logger_.syslog("No slate file is given", Syslog::ERROR);
    Progress progress(!settings_.quiet_, settings_.isDirectoryOnly() ? 0 : inputs_.totalBytes());
    for (unsigned int i = 0; i < inputs_.count() && !isMemoryUsedUp_; ++i) {
        readInput(inputs_.at(i), progress);
        if (inputs_.count() == 1) continue;
        engine_.resetInputs();  // no writer holds an entry from here on
        Slate::ReleaseDirectory();
    }
}

void Unserialize::readInput(const Str& input, Progress& progress) {
    Inputs::ReadDirectory(input, settings_);
    outputs_.writeDirectory();
    if (settings_.isDirectoryOnly()) {
        if (!Slate::IsDirectoryRead()) logger_.syslog("No directory in " + input, Syslog::ERROR);
    } else {
        forgetScannedVersion(input);
        readEntries(input, progress);
        versionLeft_ = DirectoryEntry::CurrentLogVersion_;
    }
    progress.clear();
    showMessages();
}

// What a log says of its version in the midst of it does not hold when it is read again from its start.
void Unserialize::forgetScannedVersion(const Str& input) {
    if (!Inputs::HasSideFile(input, settings_)) DirectoryEntry::CurrentLogVersion_ = versionLeft_;
}

void Unserialize::readEntries(const Str& input, Progress& progress) {
    logger_.syslog("Reading data from " + input, Syslog::INFO);
    MemoryReserve::SetTask(input);
    BinaryLogReader* const entries = new BinaryLogReader(logger_, settings_.startTime_, settings_.endTime_,
                                                         settings_.missionName_, &engine_, &consoleEngine_);
    entries->setTimeAdjust(timeCorrection_);
    FileLogReader file(input, entries);  // owns the entry reader
    for (int zeros = 0; zeros < FileLogReader::MAX_ZERO_READS; ++zeros) {
        while (!isMemoryUsedUp_ && file.read() > 0) {
            zeros = 0;
            isMemoryUsedUp_ = MemoryReserve::WasTaken() && !regainMemory();
            if (progress.isDue()) progress.show(bytesBefore_ + file.getBytesPassed());
        }
    }
    bytesBefore_ += file.getBytesPassed();
    timeCorrection_ = entries->getTimeAdjust();
    if (firstTime_ == Timestamp::NOT_SET_TIME) firstTime_ = entries->getFirstTime();
    lastTime_ = entries->getLastTime();
    if (file.getEntriesRead() == 0) reportNoEntry(input, file.getOpenError());
}

// What gives memory back is an output that keeps much of it: that one ends, the others go on. When there is none the
// rest of the inputs is left out.
bool Unserialize::regainMemory() {
    while (!MemoryReserve::Hold()) {
        if (engine_.freeMemory()) continue;
        logger_.syslog("No memory is left: what follows in the log is not converted", Syslog::ERROR);
        return false;
    }
    return true;
}

void Unserialize::reportNoEntry(const Str& input, const Str& reason) {
    logger_.syslog("No entry was read from " + input + (reason.isEmpty() ? Str::EMPTY_STR : ": " + reason),
                   Syslog::ERROR);
}

void Unserialize::nameOutputs() {
    if (firstTime_ == Timestamp::NOT_SET_TIME || !settings_.appendDates_) return;
    const OutputNaming naming(settings_, inputs_, firstTime_, lastTime_, logger_);
    for (unsigned int i = 0; i < outputFilenames_.size(); ++i) {
        naming.finish(*outputFilenames_.at(i));
        showMessages();
    }
}

// Nobody can be told on standard output that it does not take what is written.
void Unserialize::sayDone() const {
    if (!settings_.quiet_) puts("Unserialize done.");
    errno = 0;
    if (fflush(stdout) == 0 && ferror(stdout) == 0) return;
    fprintf(stderr, "Cannot write to standard output: %s\n", errno != 0 ? strerror(errno) : "part of it was not taken");
}
