#include "logger/reader/LogFiles.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

static const size_t PART_DIGITS = 4;

Str LogFiles::part(unsigned int number) const {
    char digits[16];
    snprintf(digits, sizeof digits, "%0*u", static_cast<int>(PART_DIGITS), number);
    return log_ + digits;
}

static bool OfferWithBackup(const Str& name, const LogFiles::Take& take) {
    return take(name) || take(name + ".bak");
}

bool LogFiles::offerPart(const Str& part, const Take& take) const {
    return OfferWithBackup(part, take) || offerPriorityNames(part, take);
}

// "Logs/slate0003" may also be "Logs/Courier0003": the directory, the priority word, the number. A side file may not.
bool LogFiles::offerPriorityNames(const Str& part, const Take& take) const {
    const Str separator = part.find('/') != Str::NO_POS ? "/" : "\\";
    const size_t last = part.findLastOf(separator);
    if (priorities_ == nullptr || last == Str::NO_POS || part.find(".dir") != Str::NO_POS) return false;
    const Str directory = part.substr(0, last + 1);
    const Str number = part.substr(part.length() - PART_DIGITS);
    for (int i = 0; i <= priorities_->getMaxIndex(); ++i) {
        if (OfferWithBackup(directory + Str(priorities_->at(static_cast<unsigned int>(i))) + number, take)) return true;
    }
    return false;
}

void LogFiles::offerAll(const Take& take) const {
    if (take(log_) || IsFile(log_)) return;
    int missing = 0;
    for (unsigned int number = 0; missing < MAX_MISSING; ++number) {
        bool isThere = false;
        offerPart(part(number), [&](const Str& name) {
            isThere = isThere || IsFile(name);
            return take(name);
        });
        missing = isThere ? 0 : missing + 1;
    }
}

bool LogFiles::IsFile(const Str& path) {
    struct stat status;
    return stat(path.cStr(), &status) == 0 && S_ISREG(status.st_mode) && access(path.cStr(), R_OK) == 0;
}
