#include "RunFixture.h"

// Runs that are refused memory end with a message, and what they have written stays.

#if defined(__SANITIZE_ADDRESS__)
static const bool CAN_LIMIT = false;  // the sanitizer takes all addresses for itself
#else
static const bool CAN_LIMIT = true;
#endif

class MemoryTest : public RunFixture {
protected:
    struct Limited {
        int status_;
        std::string out_;
    };
    void SetUp() override {
        if (!CAN_LIMIT) GTEST_SKIP();
    }
    Limited runWithin(int megabytes, const std::string& arguments, const std::string& environment = "") const {
        const std::string out =
            OutputOf("cd " + path("") + " && ulimit -v " + std::to_string(megabytes * 1024) + "; " + environment +
                     " " UNSERIALIZE_PROGRAM " " + arguments + " 2>&1; echo status $?");
        const size_t status = out.rfind("status ");
        return {atoi(out.c_str() + status + 7), out.substr(0, status)};
    }
    // The least address space in which the program says how it is used.
    int leastMegabytes() const {
        int megabytes = 20;
        while (runWithin(megabytes, "").status_ != 255 && megabytes < 1000) megabytes += 2;
        return megabytes;
    }
};

TEST_F(MemoryTest, NoRunEndsByASignalAndNoneInSilence) {
    synthesize("--minutes 0.5");
    const int least = leastMegabytes();
    int refusals = 0;
    for (const std::string output : {"-ac", "-ci", "-kn", "-jN", "-mH"}) {
        for (int megabytes = least; megabytes < least + 60; megabytes += 6) {
            const Limited run = runWithin(megabytes, "-qO " + output + " -o out dive");
            const bool isTold = run.out_.find("ERROR") != std::string::npos || run.out_.find("No memory") == 0;
            EXPECT_TRUE(run.status_ == 0 || (run.status_ == 1 && isTold))
                << output << " in " << megabytes << " MB: " << run.status_ << " " << run.out_;
            if (isTold) ++refusals;
        }
    }
    EXPECT_LT(3, refusals);
}

// Its samples then wait in a file; where no file can be made it ends with what it has.
TEST_F(MemoryTest, ADocumentThatIsRefusedMemoryIsWhole) {
    synthesize("--minutes 20");
    run({"-aj", "dive"});
    const std::string document = read("dive.js"), text = read("dive.asc");
    const std::string refused = "Failed to write /dev/null: a temporary file in /missing: No such file or directory";
    bool needsAFile = false;  // and there is room for all the rest
    for (int megabytes = leastMegabytes() + 18; !needsAFile && megabytes < 400; megabytes += 2) {
        const Limited cut = runWithin(megabytes, "-qO -jo /dev/null dive", "TMPDIR=/missing");
        if (CountOf(cut.out_, refused) == 0) continue;
        const Limited whole = runWithin(megabytes, "-qO -aj dive");
        needsAFile = whole.status_ == 0;
        EXPECT_EQ(needsAFile, whole.out_.empty()) << megabytes << " MB " << whole.out_;
        EXPECT_EQ(needsAFile, document == read("dive.js") && text == read("dive.asc")) << megabytes << " MB";
    }
    EXPECT_TRUE(needsAFile);
}
