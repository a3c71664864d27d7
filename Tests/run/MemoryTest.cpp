#include "RunFixture.h"
#include "support/FileSizeLimit.h"

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
    void expectEnoughBeyondLeast(int megabytes, std::initializer_list<std::string> outputs) const {
        const int enough = leastMegabytes() + megabytes;
        for (const std::string& output : outputs) {
            const Limited run = runWithin(enough, "-qO " + output + " dive");
            EXPECT_TRUE(run.status_ == 0 && run.out_.empty()) << output << " " << run.out_;
        }
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
            EXPECT_GE(1u, CountOf(run.out_, "No memory is left")) << run.out_;
            if (isTold) ++refusals;
        }
    }
    EXPECT_LT(3, refusals);
}

// Its samples then wait in a file; where that takes nothing it ends with what it has.
TEST_F(MemoryTest, ADocumentThatIsRefusedMemoryIsWhole) {
    synthesize("--minutes 20");
    run({"-aj", "dive"});
    const std::string document = read("dive.js"), text = read("dive.asc");
    const std::string refused = "Failed to write /dev/null: a temporary file in /var/tmp: File too large";
    bool needsAFile = false;  // and there is room for all the rest
    for (int megabytes = leastMegabytes() + 18; !needsAFile && megabytes < 400; megabytes += 2) {
        std::string cut;
        {
            const FileSizeLimit limit(0);
            cut = runWithin(megabytes, "-qO -jo /dev/null dive", "TMPDIR=").out_;
        }
        if (CountOf(cut, refused) == 0) continue;
        const Limited whole = runWithin(megabytes, "-qO -aj dive");
        needsAFile = whole.out_.empty();  // else there was no memory for the names of the document, or for the run
        if (!needsAFile) continue;
        EXPECT_EQ(0, whole.status_) << megabytes << " MB";
        EXPECT_TRUE(document == read("dive.js") && text == read("dive.asc")) << megabytes << " MB";
    }
    EXPECT_TRUE(needsAFile);
}

// A listed variable that never occurs lets no row leave before the end.
TEST_F(MemoryTest, RowsThatWaitTakeFewBytesEach) {
    write("dive", DiveLog::Of(100000));
    const Limited run = runWithin(leastMegabytes() + 40, "-qOci -o out dive Depth.depth Nav.speed No.such");
    EXPECT_EQ("(ERROR): No variable \"No.such\" is in the logs\n", MessagesIn(run.out_));
    EXPECT_EQ(200002u, CountOf(read("out"), ",nan\n") + 1);
}

// What the libraries of the array files would keep of each variable, and of each chunk, goes far beyond.
TEST_F(MemoryTest, ManyVariablesTakeLittleEach) {
    DiveLog dive;
    dive.begin();
    for (int i = 0; i < 3000; ++i) {
        const std::string name = "C" + std::to_string(i) + ".x";
        DataAccess* const variable = dive.log_.declare(name.c_str(), Units::METER, FLOAT4);
        dive.declare(variable);
        dive.add(dive.log_.data(variable, i, i));
    }
    write("dive", dive.bytes());
    expectEnoughBeyondLeast(180, {"-m", "-H"});
}

TEST_F(MemoryTest, LargeArraysTakeNoChunksEach) {
    DiveLog dive;
    dive.begin();
    for (int i = 0; i < 10; ++i) {
        const std::string name = "A" + std::to_string(i) + ".x";
        DataAccess* const array = dive.log_.declareBlob(name.c_str(), Units::NONE, BLOB_UINT8, 65535);
        dive.declare(array);
        dive.add(dive.log_.blob(array, i, std::vector<unsigned char>(65535, 1)));
    }
    write("dive", dive.bytes());
    expectEnoughBeyondLeast(100, {"-m", "-N"});
}
