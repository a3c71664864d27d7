#include <filesystem>

#include "RunFixture.h"
#include "support/FileSizeLimit.h"

// Inputs that cannot be read and outputs that cannot be written: one message each, and the run ends as always.

class FailureTest : public RunFixture {
protected:
    FailureTest() {
        write("dive", DiveLog::Of(3));
        write("empty", "");
        std::filesystem::create_directory(path("empty directory"));
    }
    void expectMessage(const std::string& message, const std::vector<std::string>& arguments) {
        EXPECT_EQ("(ERROR): " + message + "\n", MessagesIn(run(arguments))) << ::testing::PrintToString(arguments);
    }
};

TEST_F(FailureTest, Inputs) {
    expectMessage("No entry was read from missing: No such file or directory", {"missing"});
    expectMessage("No entry was read from empty", {"empty"});
    expectMessage("No entry was read from empty directory/slate: No such file or directory", {"empty directory"});
    expectMessage("No entry was read from /dev/null: Invalid argument", {"-ao", "out", "/dev/null"});
    expectMessage("No directory in missing", {"-d", "missing"});
    expectMessage("No slate file is given", {"-ao", "out", ";"});
    expectMessage("No entry was read from a: No such file or directory", {"-lo", "out", "a;dive"});
    EXPECT_EQ(3u, CountOf(read("out"), "\n"));  // of the other input
}

TEST_F(FailureTest, OutputsThatCannotBeCreated) {
    expectMessage("Failed to open missing/out.asc: No such file or directory", {"-ao", "missing/out.asc", "dive"});
    EXPECT_EQ(0u, CountOf(program_.run({"-qao", "missing/out.asc", "dive"}).out_, "rename"));
    expectMessage("Failed to open .: Is a directory", {"-ao", ".", "dive"});
}

TEST_F(FailureTest, AnOutputNeverReplacesItsInput) {
    expectMessage("The output dive is not written, it is an input of this run", {"-bo", "dive", "dive"});
    EXPECT_EQ(DiveLog::Of(3), read("dive"));
}

TEST_F(FailureTest, AFullDisk) {
    expectMessage("Failed to write /dev/full: No space left on device", {"-ao", "/dev/full", "dive"});
    const Outcome outcome = program_.run({"-qO", "-ao", "stdout", "dive"}, "/dev/full");
    EXPECT_EQ(0, outcome.status_);
    EXPECT_EQ("Cannot write to standard output: No space left on device\n", outcome.err_);
}

TEST_F(FailureTest, AClosedStandardOutputLeavesTheFilesAlone) {
    std::string inputs = "dive";
    for (int i = 0; i < 200; ++i) inputs += ";missing";
    EXPECT_LT(10000u, run({"-ao", "out", inputs}).size());  // more than is gathered before it is printed
    const std::string lines = read("out");
    EXPECT_EQ("", OutputOf("cd " + path("") + " && " UNSERIALIZE_PROGRAM " -qO -ao out '" + inputs + "' >&- 2>&-"));
    EXPECT_TRUE(lines == read("out"));
}

TEST_F(FailureTest, AFileThatGrowsTooLargeKeepsWhatWasWritten) {
    write("dive", DiveLog::Of(20000));
    const FileSizeLimit limit(1500000);
    expectMessage("Failed to write dive.asc: File too large", {"-a", "dive"});
    EXPECT_EQ(1500000u, read("dive.asc").size());
}

// Twenty arrays that claim 65535 elements, and hold none in fifty samples each.
TEST_F(FailureTest, ArraysThatAreNotThereAreLeftOut) {
    DiveLog dive;
    dive.begin();
    std::vector<DataAccess*> arrays;
    for (int i = 0; i < 20; ++i) {
        const std::string name = "A" + std::to_string(i) + ".x";
        arrays.push_back(dive.log_.declareBlob(name.c_str(), Units::NONE, BLOB_UINT8, 65535));
        dive.declare(arrays.back());
    }
    dive.cycles(0, 3);
    for (DataAccess* array : arrays) {
        for (int i = 0; i < 50; ++i) dive.add(dive.log_.blob(array, 3 + i, std::vector<unsigned char>()));
    }
    dive.cycles(60, 3);
    write("dive", dive.bytes());
    const std::string text = run({"-mN", "dive"});
    for (const std::string file : {"dive.mat", "dive.nc4"}) {
        EXPECT_EQ(1u, CountOf(text, "Not all samples are in " + file)) << text;
        EXPECT_GT(2000000u, read(file).size()) << file;
    }
    EXPECT_EQ("   Depth.depth = 0, 0.5, 1, 30, 30.5, 31 ;\n",
              OutputOf("ncdump -v Depth.depth " + path("dive.nc4") + " | grep ' Depth.depth ='"));
}
