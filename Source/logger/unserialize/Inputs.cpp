#include "logger/unserialize/Inputs.h"

#include <sys/stat.h>

#include <cstdio>
#include <memory>

namespace {

const char* const FIRST_PART = "0000";  // ends the name of the first of a log's numbered parts
const size_t FIRST_PART_LENGTH = 4;

bool IsDirectory(const Str& path) {
    struct stat status;
    return stat(path.cStr(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool StatRegularFile(const Str& path, struct stat& status) {
    return stat(path.cStr(), &status) == 0 && S_ISREG(status.st_mode);
}

Str NumberedPart(const Str& input, unsigned int number) {
    char digits[16];
    snprintf(digits, sizeof digits, "%04u", number);
    return input + digits;
}

// Calls visit with the status of the log's file or, when there is none of that name, of each of its numbered parts.
template <typename Visit>
void ForEachFile(const Str& input, Visit visit) {
    struct stat status;
    if (StatRegularFile(input, status)) {
        visit(status);
        return;
    }
    for (unsigned int number = 0; StatRegularFile(NumberedPart(input, number), status); ++number) visit(status);
}

Str SlateIn(const Str& directory) {
    return directory + (directory[directory.length() - 1] == '/' ? "slate" : "/slate");
}

}  // namespace

Inputs::Inputs(RunSettings& settings) {
    const Str& specification = settings.slateFile_;
    int pieceCount = 0;
    const std::unique_ptr<Str[]> pieces(
        specification.split(pieceCount, specification.find('\n') == Str::NO_POS ? ";" : "\n"));
    Str lastDirectory;
    for (int i = 0; i < pieceCount; ++i) {
        if (IsDirectory(pieces[i])) lastDirectory = pieces[i];
        add(pieces[i]);
    }
    if (count() == 1 && !lastDirectory.isEmpty()) settings.slateFile_ = SlateIn(lastDirectory);
}

void Inputs::add(Str item) {
    if (item.isEmpty()) return;
    if (IsDirectory(item)) {
        item = SlateIn(item);
    } else if (item.endsWith(FIRST_PART)) {
        item = item.substr(0, item.length() - FIRST_PART_LENGTH);
    }
    items_.push(new Str(item));
}

long long Inputs::totalBytes() const {
    long long bytes = 0;
    for (unsigned int i = 0; i < count(); ++i) {
        ForEachFile(at(i), [&bytes](const struct stat& status) { bytes += status.st_size; });
    }
    return bytes;
}

bool Inputs::contains(const Str& path) const {
    struct stat wanted;
    if (!StatRegularFile(path, wanted)) return false;
    bool found = false;
    for (unsigned int i = 0; i < count(); ++i) {
        ForEachFile(at(i), [&](const struct stat& status) {
            found = found || (status.st_dev == wanted.st_dev && status.st_ino == wanted.st_ino);
        });
    }
    return found;
}
