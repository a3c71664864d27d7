#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "RunFixture.h"

// The page about the outputs shows what the program writes.

namespace {

// A command on the page and the sample below it.
struct Sample {
    std::string command_;
    std::string lines_;
};

std::vector<Sample> SamplesOfThePage() {
    static const std::string FENCE = "```\n", COMMAND = "`unserialize ";
    std::stringstream text;
    text << std::ifstream(OUTPUTS_PAGE).rdbuf();
    const std::string page = text.str();
    std::vector<Sample> samples;
    for (size_t begin = page.find(FENCE), end; begin != std::string::npos; begin = page.find(FENCE, end + 1)) {
        end = page.find(FENCE, begin + 1);
        const size_t paragraph = page.rfind("\n\n", begin - 3);
        const size_t command = page.rfind(COMMAND, begin) + 1;
        const std::string lines = page.substr(begin + FENCE.size(), end - begin - FENCE.size());
        if (command > paragraph && lines[0] != '>') {  // neither more of the same nor a session of another program
            samples.push_back({page.substr(command, page.find('`', command) - command), lines});
        }
    }
    return samples;
}

// Without what indents, and without the end of an array, which may be cut short.
std::string Bare(std::string line) {
    line.erase(std::remove_if(line.begin(), line.end(), isspace), line.end());
    return line.substr(0, line.find_last_not_of("],") + 1);
}

class OutputsDocTest : public RunFixture {
protected:
    // What the command writes, a binary file as ncdump shows it.
    std::string outputOf(std::string command) {
        command.replace(0, command.find(' '), UNSERIALIZE_PROGRAM " -q");
        EXPECT_EQ("", OutputOf("cd " + path("") + " && " + command + " 2>&1"));
        std::string text;
        for (const auto& file : std::filesystem::directory_iterator(path(""))) {
            const std::string ending = file.path().extension();
            if (ending.empty()) continue;
            if (ending == ".nc" || ending == ".nc4")
                text = OutputOf("ncdump -h " + file.path().string());
            else if (ending != ".kmz")
                text = read(file.path().filename());
            std::filesystem::remove(file.path());
        }
        return text;
    }
};

}  // namespace

TEST_F(OutputsDocTest, TheSamplesAreWhatTheCommandsGive) {
    synthesize("");
    const std::vector<Sample> samples = SamplesOfThePage();
    EXPECT_LT(8u, samples.size());
    for (const Sample& sample : samples) {
        SCOPED_TRACE(sample.command_);
        std::istringstream output(outputOf(sample.command_)), page(sample.lines_);
        std::string written;
        for (std::string shown; std::getline(page, shown);) {
            if (shown == "...") continue;
            bool found = false;
            while (!found && std::getline(output, written)) found = Bare(written).rfind(Bare(shown), 0) == 0;
            ASSERT_TRUE(found) << shown;
        }
    }
}
