#include "logger/unserialize/Unserialize.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include "logger/reader/BinaryLogReader.h"
#include "logger/reader/FileLogReader.h"
#include "logger/rule/SyslogRules.h"
#include "logger/unserialize/CommandLine.h"
#include "logger/unserialize/OutputFormat.h"
#include "logger/unserialize/OutputNaming.h"
#include "logger/unserialize/Progress.h"
#include "logger/writer/text/TextLogWriter.h"
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
    readInputs();
    engine_.uninitialize();
    outputs_.placeDirectory();
    unknownWords_.complain(settings_.isDirectoryOnly() || firstTime_.isSet());
    reportComplaints();
    nameOutputs();
    sayDone();
    return isMemoryUsedUp_ ? MEMORY_USED_UP : CommandLine::RUN;
}

// A failed write is an error to report, not a signal to die of: a file that grows too large, and a reader of a pipe or
// of standard output that has gone while files are still to be finished.
static void KeepRunningWhenWritesFail() {
    signal(SIGXFSZ, SIG_IGN);
    signal(SIGPIPE, SIG_IGN);
}

Unserialize::Unserialize(RunSettings& settings)
    : settings_(settings),
      console_(stdout, false),
      logger_("unserialize", &consoleEngine_),
      engine_(queue_),
      inputs_(settings),
      unknownWords_(settings, log_),
      directories_(settings),
      outputs_(settings, log_, inputs_, engine_, logger_),
      timeCorrection_(settings.localTimeOnly_ ? Timespan::INVALID_TIMESPAN : Timespan::ZERO_TIMESPAN) {
    KeepRunningWhenWritesFail();
    consoleEngine_.addAssociation(new TextLogWriter(console_, false),
                                  new SyslogSeverityRule(settings.quiet_ ? Syslog::ERROR : Syslog::DEBUG, true));
    log_.setLogger(&logger_);
    if (settings.priorityListGiven_) log_.setPriorityWords(&settings.priorityList_);
}

void Unserialize::reportComplaints() {
    for (unsigned int i = 0; i < settings_.complaints_.size(); ++i) {
        logger_.syslog(*settings_.complaints_.at(i), Syslog::ERROR);
    }
    settings_.complaints_.clear();
    showMessages();
}

// Tables need to know every variable before the first entry. Other outputs learn names as they come; with a single
// input they are given what its side file, or in a run that writes one the log itself, says.
void Unserialize::listVariables() {
    if (settings_.variables_.requested_.count() > 0) return;
    if (OutputFormat::AnyNeedsNames(settings_)) {
        variableList_.readFrom(inputs_, log_, directories_, settings_, consoleEngine_);
        variableList_.giveTo(settings_.variables_);
    } else if (inputs_.count() == 1) {
        directories_.readAhead(log_, inputs_.at(0));
    }
}

void Unserialize::readInputs() {
    if (inputs_.count() == 0) logger_.syslog("No slate file is given", Syslog::ERROR);
    Progress progress(!settings_.quiet_, settings_.isDirectoryOnly() ? 0 : inputs_.totalBytes());
    for (unsigned int i = 0; i < inputs_.count() && !isMemoryUsedUp_; ++i) {
        readInput(inputs_.at(i), progress);
        if (inputs_.count() == 1) continue;
        engine_.resetInputs();  // no writer holds an entry from here on
        log_.uninitialize();
    }
}

void Unserialize::readInput(const Str& input, Progress& progress) {
    directories_.read(log_, input);
    outputs_.writeDirectory();
    if (settings_.isDirectoryOnly()) {
        checkDirectory(input);
    } else {
        directories_.forgetScannedVersion();
        readEntries(input, progress);
    }
    progress.clear();
    showMessages();
}

void Unserialize::checkDirectory(const Str& input) {
    if (log_.isDirectoryRead()) {
        unknownWords_.askLog();
    } else {
        logger_.syslog("No directory in " + input, Syslog::ERROR);
    }
}

void Unserialize::readEntries(const Str& input, Progress& progress) {
    logger_.syslog("Reading data from " + input, Syslog::INFO);
    MemoryReserve::SetTask(input);
    BinaryLogReader* const entries = new BinaryLogReader(logger_, settings_.startTime_, settings_.endTime_,
                                                         settings_.missionName_, &engine_, &consoleEngine_, log_);
    entries->setTimeAdjust(timeCorrection_);
    FileLogReader file(input, entries);  // owns the entry reader
    file.readWhile([&] {
        isMemoryUsedUp_ = MemoryReserve::WasTaken() && !regainMemory();
        if (progress.isDue()) progress.show(bytesBefore_ + file.getBytesPassed());
        return !isMemoryUsedUp_ && !writesInVain();
    });
    bytesBefore_ += file.getBytesPassed();
    timeCorrection_ = entries->getTimeAdjust();
    if (!firstTime_.isSet()) firstTime_ = entries->getFirstTime();
    if (entries->getLastTime().isSet()) lastTime_ = entries->getLastTime();
    if (file.getEntriesRead() == 0) {
        reportNoEntry(input, file.getOpenError());
    } else {
        unknownWords_.askLog();
    }
}

// Nobody reads what the run writes any more.
bool Unserialize::writesInVain() const {
    return settings_.toStandardOutput_ && outputs_.files().size() == 0 && ferror_unlocked(stdout) != 0;
}

// What gives memory back is an output that keeps much of it: to a file, or that one ends and the others go on. When
// there is none the rest of the inputs is left out.
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
    if (!firstTime_.isSet() || !settings_.appendDates_ || settings_.toStandardOutput_) return;
    const OutputNaming naming(settings_, inputs_, firstTime_, lastTime_, logger_);
    for (unsigned int i = 0; i < outputs_.files().size(); ++i) {
        const OutputFiles::File& file = *outputs_.files().at(i);
        if (file.outcome_->isWhole()) naming.finish(file.name_);
        if (file.outcome_->isIncomplete()) {
            logger_.syslog("The output " + file.name_ + " is incomplete and keeps its name", Syslog::ERROR);
        }
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
