#include "SynthOptions.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

const char* const HELP_TEXT =
    "Usage: slatesynth [option...] OUT\n"
    "\n"
    "Writes a log of a vehicle that yo-yos along a curved track in the Pacific: about 300 variables, missions,\n"
    "failures, messages and GPS fixes. The same options give the same bytes.\n"
    "\n"
    "  --seed N        another dive (default 1)\n"
    "  --minutes M     vehicle time (default 30)\n"
    "  --megabytes M   stop at this size instead, over all parts\n"
    "  --version V     log format version, 3 to 8 (default 8)\n"
    "  --parts N       write OUT0000, OUT0001, ...: N parts, each readable alone\n"
    "  --damage N      then overwrite, insert or delete a few bytes at N places\n"
    "  --help          show this text\n";

namespace {

const double MAX_MINUTES = 5.0 * 365 * 24 * 60;  // keeps every time of a log in the past
const double MAX_MEGABYTES = 100.0 * 1024;       // a little more than a year
const double MAX_SEED = 9007199254740992.0;      // whole numbers are exact up to here

typedef void (*Store)(SynthOptions& options, double number);

struct NumberOption {
    const char* name_;
    bool whole_;
    double lowest_;
    double highest_;
    Store store_;
};

const NumberOption NUMBER_OPTIONS[] = {
    {"--seed", true, 0, MAX_SEED, [](SynthOptions& o, double n) { o.seed_ = static_cast<uint64_t>(n); }},
    {"--minutes", false, 0.01, MAX_MINUTES, [](SynthOptions& o, double n) { o.minutes_ = n; }},
    {"--megabytes", false, 0.01, MAX_MEGABYTES, [](SynthOptions& o, double n) { o.megabytes_ = n; }},
    {"--version", true, 3, 8, [](SynthOptions& o, double n) { o.version_ = static_cast<int>(n); }},
    {"--parts", true, 1, 1000, [](SynthOptions& o, double n) { o.parts_ = static_cast<int>(n); }},
    {"--damage", true, 0, 1000000, [](SynthOptions& o, double n) { o.damages_ = static_cast<unsigned int>(n); }},
};

const NumberOption* FindOption(const char* name) {
    for (const NumberOption& option : NUMBER_OPTIONS) {
        if (strcmp(option.name_, name) == 0) return &option;
    }
    return nullptr;
}

Str NumberAsText(double number) {
    return Str(number, number == std::floor(number) ? 0 : 2);
}

bool StoreNumber(const NumberOption& option, const char* text, SynthOptions& options, Str& error) {
    char* end = nullptr;
    const double number = text == nullptr ? 0 : strtod(text, &end);
    const bool isNumber = text != nullptr && end != text && *end == '\0' && std::isfinite(number);
    const bool fits = isNumber && number >= option.lowest_ && number <= option.highest_;
    if (!fits || (option.whole_ && number != std::floor(number))) {
        error = Str(option.name_) + " takes a " + (option.whole_ ? "whole number" : "number") + " from " +
                NumberAsText(option.lowest_) + " to " + NumberAsText(option.highest_) + ", not " +
                (text == nullptr ? Str("nothing") : "'" + Str(text) + "'");
        return false;
    }
    option.store_(options, number);
    return true;
}

bool StoreOutput(const char* text, SynthOptions& options, Str& error) {
    if (!options.output_.isEmpty()) {
        error = Str("only one OUT can be written, but '") + text + "' is the second";
        return false;
    }
    options.output_ = text;
    return true;
}

}  // namespace

Request ParseArguments(int argc, char** argv, SynthOptions& options, Str& error) {
    for (int i = 1; i < argc; ++i) {
        if (strcmp(argv[i], "--help") == 0) return Request::HELP;
        if (const NumberOption* option = FindOption(argv[i])) {
            const char* const value = i + 1 < argc ? argv[++i] : nullptr;
            if (!StoreNumber(*option, value, options, error)) return Request::REFUSE;
        } else if (argv[i][0] == '-') {
            error = Str("there is no option '") + argv[i] + "'";
            return Request::REFUSE;
        } else if (!StoreOutput(argv[i], options, error)) {
            return Request::REFUSE;
        }
    }
    if (options.output_.isEmpty()) error = "OUT, the name of the log, is missing";
    return error.isEmpty() ? Request::RUN : Request::REFUSE;
}
