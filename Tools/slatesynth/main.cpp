#include <cstdio>
#include <cstring>

#include "Damage.h"
#include "Dive.h"

namespace {

enum ExitStatus { DONE = 0, FAILED = 1, REFUSED = 2 };

void Report(const Dive& dive) {
    const LogBuilder& log = dive.log();
    printf("%s: %d file%s, %.1f MB, %llu entries, %u variables, %.1f minutes\n", log.fileName(0).cStr(),
           log.filesWritten(), log.filesWritten() == 1 ? "" : "s", static_cast<double>(log.bytesWritten()) / 1048576,
           log.entriesWritten(), dive.variableCount(), dive.seconds() / 60);
}

// The places are shared out among the files.
bool DamageFiles(const LogBuilder& log, const SynthOptions& options) {
    const unsigned int files = static_cast<unsigned int>(log.filesWritten());
    for (unsigned int i = 0; i < files; ++i) {
        const unsigned int places = (options.damages_ + i) / files;
        if (places > 0 && !DamageFile(log.fileName(static_cast<int>(i)), places, options.seed_ + i)) return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    SynthOptions options;
    Str error;
    const Request request = ParseArguments(argc, argv, options, error);
    if (request == Request::HELP) {
        fputs(HELP_TEXT, stdout);
        return DONE;
    }
    if (request == Request::REFUSE) {
        fprintf(stderr, "slatesynth: %s\nslatesynth --help explains the options\n", error.cStr());
        return REFUSED;
    }
    Dive dive(options);
    if (const int failure = dive.run()) {
        fprintf(stderr, "slatesynth: %s: %s\n", options.output_.cStr(), strerror(failure));
        return FAILED;
    }
    Report(dive);
    return DamageFiles(dive.log(), options) ? DONE : FAILED;
}
