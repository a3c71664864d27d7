#include "logger/unserialize/OutputNaming.h"

#include <dirent.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "io/OldFile.h"
#include "logger/unserialize/Inputs.h"

static const char SLATE[] = "slate";
static const size_t SLATE_LENGTH = sizeof SLATE - 1;

static bool EndsWith(const char* text, const Str& end) {
    const size_t length = strlen(text);
    return length >= end.length() && end == text + (length - end.length());
}

OutputNaming::OutputNaming(const RunSettings& settings, const Inputs& inputs, const Timestamp& first,
                           const Timestamp& last, const Logger& logger)
    : inputs_(inputs),
      logger_(logger),
      firstDate_(first.toSmallerString()),
      lastDate_(last.toSmallerString()),
      symlink_(settings.symlink_),
      dropsSlate_(!settings.outputNameGiven_ && EndsWith(settings.slateFile_.cStr(), SLATE)) {}

void OutputNaming::finish(const Str& filename) const {
    Parts parts;
    if (!split(filename, parts)) return;
    const Str datedName = parts.prefix_ + "_" + lastDate_ + parts.extension_;
    const Str path = parts.directory_ + datedName;
    if (inputs_.contains(path)) {
        logger_.syslog("The output " + filename + " is not renamed to " + path + ", which is an input of this run",
                       Syslog::ERROR);
    } else if (rename(filename.cStr(), path.cStr()) == 0) {
        removeEarlierResults(parts, datedName);
        logger_.syslog("Saved " + path, Syslog::INFO);
        if (symlink_) link(filename, datedName);
    } else {
        logger_.syslog("Could not rename " + filename + " to " + path + " due to " + strerror(errno), Syslog::ERROR);
    }
}

// False for a name without an extension.
bool OutputNaming::split(const Str& filename, Parts& parts) const {
    static const size_t NOT_FOUND = static_cast<size_t>(-1);
    const size_t dot = filename.findLastOf('.');
    const size_t baseStart = filename.findLastOf('/') + 1;  // 0 when there is none
    if (dot == NOT_FOUND || dot < baseStart) return false;
    const Str base = filename.substr(baseStart, dot - baseStart);
    parts.directory_ = filename.substr(0, baseStart);
    parts.extension_ = filename.substr(dot);
    parts.prefix_ = dropsSlate_ ? base.substr(0, base.length() - SLATE_LENGTH) : base + "_";
    parts.prefix_ += firstDate_;
    return true;
}

static bool BeginsWith(const char* text, const Str& start) {
    return strncmp(text, start.cStr(), start.length()) == 0;
}

// They go only now that there is a new one in their stead.
void OutputNaming::removeEarlierResults(const Parts& parts, const Str& datedName) const {
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(parts.directory_.cStr()), closedir);
    if (directory == nullptr) {
        logger_.syslog("Unserialize is unable to open directory: " + parts.directory_, Syslog::ERROR);
        return;
    }
    while (const dirent* const entry = readdir(directory.get())) {
        const bool isEarlier = BeginsWith(entry->d_name, parts.prefix_) && EndsWith(entry->d_name, parts.extension_) &&
                               datedName != entry->d_name;
        if (isEarlier) remove(parts.directory_ + entry->d_name);
    }
}

void OutputNaming::remove(const Str& path) const {
    if (!inputs_.contains(path) && RemoveOldFile(path.cStr())) logger_.syslog("Removed " + path, Syslog::INFO);
}

void OutputNaming::link(const Str& filename, const Str& datedName) const {
    if (symlink(datedName.cStr(), filename.cStr()) == 0) {
        logger_.syslog("Symlink: " + filename, Syslog::INFO);
    } else {
        logger_.syslog("Could not link " + datedName + " to " + filename + " due to " + strerror(errno), Syslog::ERROR);
    }
}
