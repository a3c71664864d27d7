#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DiveLog.h"
#include "Program.h"
#include "support/Command.h"

// The program, in a directory of the test's own. What is common to the runs: quiet, with names that stay.
class RunFixture : public ::testing::Test {
protected:
    // What the run printed; it ends as always and writes nothing on standard error.
    std::string run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "-qO");
        const Outcome outcome = program_.run(arguments);
        EXPECT_EQ(0, outcome.status_) << ::testing::PrintToString(arguments);
        EXPECT_EQ("", outcome.err_) << ::testing::PrintToString(arguments);
        return outcome.out_;
    }
    void runInSilence(const std::vector<std::string>& arguments) {
        EXPECT_EQ("", run(arguments)) << ::testing::PrintToString(arguments);
    }
    std::string path(const std::string& name) const { return program_.files().path(name); }
    std::string read(const std::string& name) const { return program_.files().read(name); }
    void write(const std::string& name, const std::string& bytes) const { program_.files().write(name, bytes); }
    // Makes the log "dive" of a whole dive.
    void synthesize(const std::string& options) const {
        EXPECT_NE("", OutputOf(std::string(SLATESYNTH_PROGRAM) + " " + options + " " + path("dive")));
    }

    Program program_;
};

// The program's messages in what a run printed, without their times.
inline std::string MessagesIn(const std::string& output) {
    static const std::string SENDER = "[unserialize]";
    std::string messages;
    for (size_t at = output.find(SENDER); at != std::string::npos; at = output.find(SENDER, at)) {
        at += SENDER.size();
        messages += output.substr(at, output.find('\n', at) + 1 - at);
    }
    return messages;
}
