#include "logger/unserialize/Inputs.h"

#include <sys/stat.h>

#include <memory>

#include "io/FileIdentity.h"
#include "logger/reader/FileLogReader.h"

namespace {

const char* const FIRST_PART = "0000";  // ends the name of the first of a log's numbered parts
const size_t FIRST_PART_LENGTH = 4;

bool IsDirectory(const Str& path) {
    struct stat status;
    return stat(path.cStr(), &status) == 0 && S_ISDIR(status.st_mode);
}

Str SideFileOf(const Str& input) {
    return input + ".dir";
}

bool ReadsSideFiles(const RunSettings& settings) {
    return !settings.writes(DIRECTORY_OUTPUT);
}

Str SlateIn(const Str& directory) {
    return directory + (directory[directory.length() - 1] == '/' ? "slate" : "/slate");
}

}  // namespace

Inputs::Inputs(RunSettings& settings) : readsSideFiles_(ReadsSideFiles(settings)) {
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

// Of the names of a part the first that there is a file of counts.
long long Inputs::totalBytes() const {
    long long bytes = 0;
    for (unsigned int i = 0; i < count(); ++i) {
        FileLogReader::FilesOf(at(i)).offerAll([&bytes](const Str& name) {
            struct stat status;
            if (!LogFiles::IsFile(name) || stat(name.cStr(), &status) != 0) return false;
            bytes += status.st_size;
            return status.st_size > 0;
        });
    }
    return bytes;
}

bool Inputs::contains(const Str& path) const {
    const FileIdentity file(path);
    bool found = false;
    const LogFiles::Take compare = [&](const Str& name) { return found = found || FileIdentity(name) == file; };
    for (unsigned int i = 0; i < count() && !found; ++i) {
        FileLogReader::FilesOf(at(i)).offerAll(compare);
        if (readsSideFiles_) FileLogReader::FilesOf(SideFileOf(at(i))).offerAll(compare);
    }
    return found;
}
