#include "logger/unserialize/OutputFiles.h"

#include "io/OldFile.h"
#include "logger/unserialize/Inputs.h"
#include "logger/writer/FileLogWriter.h"

bool OutputFiles::mayWrite(const Str& filename, bool needsPlainFile) const {
    const bool isInput = inputs_.contains(filename);
    const bool isUnfit = needsPlainFile && IsWrittenThrough(filename.cStr());
    if (!isInput && !isUnfit) return true;
    logger_.syslog("The output " + filename + " is not written, " +
                       (isInput ? "it is an input of this run" : "its format needs a plain file"),
                   Syslog::ERROR);
    return false;
}

void OutputFiles::remember(HasFilename& writer) {
    const Str& name = writer.getFilename();
    if (IsWrittenThrough(name.cStr())) return;
    for (unsigned int i = 0; i < files_.size(); ++i) {
        if (files_.at(i)->name_ != name) continue;
        files_.at(i)->outcome_ = writer.getOutcome();
        return;
    }
    files_.push(new File{name, writer.getOutcome()});
}
