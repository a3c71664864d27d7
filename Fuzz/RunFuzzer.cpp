// Whole runs with every output. An input is four bytes of options, then a log, a second part of it and a directory file
// beside it, separated by SECTION. No run may change its log, and a run done again must write the same.
#include <cstdint>
#include <cstring>

#include "Workplace.h"

namespace {

const std::string SECTION = "%%%%";

// Arguments by the bit that adds them, those of outputs first.
const std::vector<std::string> OPTIONS[] = {
    {"-a"},
    {"-b"},
    {"-c"},
    {"-d"},
    {"-H"},
    {"-j"},
    {"-J"},
    {"-k"},
    {"-K"},
    {"-l"},
    {"-m"},
    {"-n"},
    {"-N"},
    {"-i"},
    {"-h"},
    {"-L"},
    {"-q"},
    {"-O"},
    {"-y"},
    {"-o", "slate0000"},
    {"-r", "Survey"},
    {"-p", "Nav"},
    {"-P", "a"},
    {"-s", "2012-06-01T12:30:01.5"},
    {"-S", "d"},
    {"-v", "<&>"},
    {"-e", "2012-06-01T12:30:03.5"},
    {"-C", "80ff0000"},
};
const std::vector<std::string> NAMES[] = {
    {"Depth.depth"}, {"0.5"}, {"(foot)"}, {"latitude", "Modem.state", "Nav.velocity"}};
const unsigned int PRIORITIES = 1u << 22;  // the bit of -P

// Adds what the bits stand for; the bits that are left.
template <size_t N>
uint32_t AddChosen(uint32_t bits, const std::vector<std::string> (&choices)[N], std::vector<std::string>& arguments) {
    for (const auto& choice : choices) {
        if ((bits & 1) != 0) arguments.insert(arguments.end(), choice.begin(), choice.end());
        bits >>= 1;
    }
    return bits;
}

std::vector<std::string> ArgumentsOf(uint32_t bits) {
    std::vector<std::string> arguments;
    bits = AddChosen(bits, OPTIONS, arguments);
    arguments.push_back("./slate");
    AddChosen(bits, NAMES, arguments);
    return arguments;
}

// The next section; rest is what follows it.
std::string TakeSection(std::string& rest) {
    const size_t end = rest.find(SECTION);
    const std::string section = rest.substr(0, end);
    rest = end == std::string::npos ? "" : rest.substr(end + SECTION.size());
    return section;
}

Files LogOf(std::string bytes, bool underPriorityName) {
    const std::string log = TakeSection(bytes);
    const std::string secondPart = TakeSection(bytes);
    if (secondPart.empty()) return {{"slate", log}};
    return {{"slate0000", log}, {underPriorityName ? "Courier0001" : "slate0001", secondPart}};
}

std::string SideFileOf(std::string bytes) {
    TakeSection(bytes);
    TakeSection(bytes);
    return bytes;
}

// Some formats hold the time at which they were written; a name without extension may be any output's.
bool IsTimeless(const std::string& name) {
    static const std::vector<std::string> WITH_TIMES = {".kmz", ".nc", ".nc4", ".h5", ".mat", ""};
    const std::string extension = std::filesystem::path(name).extension();
    return std::find(WITH_TIMES.begin(), WITH_TIMES.end(), extension) == WITH_TIMES.end();
}

bool IsSame(const Files& a, const Files& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.first == y.first && (x.second == y.second || !IsTimeless(x.first));
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const Workplace workplace;
    uint32_t bits;
    if (size < sizeof bits) return 0;
    memcpy(&bits, data, sizeof bits);
    const std::string bytes(data + sizeof bits, data + size);
    const Files log = LogOf(bytes, (bits & PRIORITIES) != 0);
    Files inputs = log;
    const std::string sideFile = SideFileOf(bytes);
    if (!sideFile.empty()) inputs["slate.dir"] = sideFile;

    const Files outputs = workplace.run(inputs, ArgumentsOf(bits));
    if (!HoldsAll(outputs, log)) abort();
    const bool again = size % 8 == 0;
    if (again && !IsSame(outputs, workplace.run(inputs, ArgumentsOf(bits)))) abort();
    return 0;
}
