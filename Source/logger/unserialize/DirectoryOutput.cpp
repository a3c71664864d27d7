#include "logger/unserialize/DirectoryOutput.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "logger/writer/FileLogWriter.h"
#include "logger/writer/binary/DirectoryLogWriter.h"

LogWriter* DirectoryOutput::toStagedFile(const Str& filename) {
    file_ = std::make_unique<StagedFile>(filename);
    FileLogWriter* const file = new FileLogWriter(file_->name(), writer_, false, nullptr);
    file->setFilename(filename);
    outcome_ = file->getOutcome();
    if (!file->valid()) file_.reset();
    return file;
}

void DirectoryOutput::write() {
    if (writer_ != nullptr) writer_->writeHeader();
}

// A directory that is cut short, or that is none, would spoil every later run on its log: the one before stays.
void DirectoryOutput::place() {
    const std::unique_ptr<StagedFile> file = std::move(file_);
    if (file == nullptr) return;
    if (!outcome_->isWhole()) {
        complain("The output " + file->place() + " is incomplete and is not kept");
    } else if (!isFound_ && access(file->place().cStr(), F_OK) == 0) {
        complain("The file " + file->place() + " is not replaced, no directory was read");
    } else if (!file->putInPlace()) {
        complain("Could not rename " + file->name() + " to " + file->place() + " due to " + strerror(errno));
    }
}
