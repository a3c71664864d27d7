// Any command line, its arguments separated by NUL bytes, beside a few logs, which only an
// output that is given their name may replace.
#include <cstdint>

#include "SeedDive.h"
#include "Workplace.h"

namespace {

// No argument may lead out of the directory: neither from the root nor upwards.
void KeepInside(std::string& argument) {
    for (size_t i = 0; i < argument.size(); ++i) {
        const char before = i == 0 ? ';' : argument[i - 1];
        const bool fromRoot = argument[i] == '/' && (before == ';' || before == '\n');
        const bool upwards = argument[i] == '.' && before == '.';
        if (fromRoot || upwards) argument[i] = '_';
    }
}

std::vector<std::string> ArgumentsOf(const uint8_t* data, size_t size) {
    std::vector<std::string> arguments;
    for (const uint8_t *begin = data, *const end = data + size; begin < end;) {
        const uint8_t* const stop = std::find(begin, end, 0);
        arguments.emplace_back(begin, stop);
        KeepInside(arguments.back());
        begin = stop == end ? end : stop + 1;
    }
    return arguments;
}

Files Logs() {
    const std::string log = SeedDive::Of(3);
    return {{"slate", log},
            {"parts0000", log},
            {"parts0001", log},
            {"damaged", log.substr(0, log.size() / 2) + log},
            {"Logs/latest/slate", log},
            {"Logs/latest/Courier0000", log}};
}

// The output name may be that of a log which is no input.
bool IsNamed(const std::string& log, const std::vector<std::string>& arguments) {
    const std::string name = std::filesystem::path(log).filename();
    return std::any_of(arguments.begin(), arguments.end(), [&name](const std::string& argument) {
        return std::filesystem::path(argument).filename() == name;
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const Files logs = Logs();
    static const Workplace workplace;
    const std::vector<std::string> arguments = ArgumentsOf(data, size);
    const Files after = workplace.run(logs, arguments);
    for (const auto& log : logs) {
        if (!HoldsAll(after, {log}) && !IsNamed(log.first, arguments)) abort();
    }
    return 0;
}
