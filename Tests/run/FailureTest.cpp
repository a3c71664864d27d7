#include <sys/stat.h>
#include <unistd.h>

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
    for (const char* const option : {"-a", "-n", "-N", "-m", "-H"}) {
        expectMessage("Failed to open missing/out: No such file or directory", {option, "-o", "missing/out", "dive"});
        expectMessage("Failed to open .: Is a directory", {option, "-o", ".", "dive"});
    }
    EXPECT_EQ(0u, run({"-no", "missing/out", "dive"}).find("NetCdf error: "));
    EXPECT_EQ(0u, CountOf(program_.run({"-qao", "missing/out.asc", "dive"}).out_, "rename"));
}

// Whatever name the run finds it under, or would find it under once it is there.
TEST_F(FailureTest, AnOutputNeverReplacesItsInput) {
    const std::string log = DiveLog::Of(3);
    std::filesystem::create_directory(path("more"));
    const char* const inputs[] = {"dive",      "dive.dir",       "parts0000",        "parts0004.bak",
                                  "track.kmz", "more/slate0000", "more/Courier0001", "stdout"};
    for (const char* input : inputs) write(input, log);
    std::filesystem::create_symlink("dive", path("link"));
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"dive", {"-bo", "dive", "dive"}},
        {"link", {"-bo", "link", "dive"}},
        {"dive.dir", {"-ao", "dive.dir", "dive"}},
        {"parts", {"-bo", "parts", "parts"}},
        {"./parts0001", {"-bo", "./parts0001", "parts"}},
        {"parts0024", {"-bo", "parts0024", "parts"}},  // after a gap that a reader bridges
        {"parts0004.bak", {"-bo", "parts0004.bak", "parts"}},
        {"more/Courier0001", {"-bPo", "c", "more/Courier0001", "more"}},
        {"track.kmz", {"-ko", "track.kml", "track.kmz"}},
        {"stdout", {"-no", "stdout", "stdout"}},
    };
    for (const auto& [output, arguments] : cases) {
        const std::string message = "(ERROR): The output " + output + " is not written, it is an input of this run\n";
        EXPECT_EQ(1u, CountOf(MessagesIn(run(arguments)), message)) << output;
        for (const char* input : inputs) EXPECT_TRUE(log == read(input)) << output << " " << input;
    }
    EXPECT_EQ(0u, CountOf(run({"-bo", "parts0025", "parts"}), "is an input"));
    EXPECT_EQ(
        "dive dive.dir empty empty directory link more parts0000 parts0004.bak parts0025 stdout track.kml track.kmz ",
        program_.list());
}

TEST_F(FailureTest, WhatIsNoFileIsOnlyWrittenTo) {
    ASSERT_EQ(0, mkfifo(path("pipe.kml").c_str(), 0600));
    expectMessage("Failed to open pipe.kml: nobody reads it", {"-ko", "pipe.kml", "dive"});
    expectMessage("Failed to write /dev/full: No space left on device", {"-ko", "/dev/full", "dive"});
    for (const char* option : {"-n", "-N", "-m", "-H"}) {
        for (const char* place : {"pipe.kml", "/dev/full"}) {
            expectMessage("The output " + std::string(place) + " is not written, its format needs a plain file",
                          {option, "-o", place, "dive"});
        }
    }
    runInSilence({"-k", "dive"});
    const std::string track = read("dive.kml");
    std::string piped(track.size() + 1, ' ');
    const int reader = open(path("pipe.kml").c_str(), O_RDONLY | O_NONBLOCK);
    runInSilence({"-ko", "pipe.kml", "dive"});
    EXPECT_EQ(static_cast<ssize_t>(track.size()), ::read(reader, piped.data(), piped.size()));
    EXPECT_EQ(track, piped.substr(0, track.size()));
    close(reader);
    symlink("/dev/stdout", path("link.asc").c_str());
    runInSilence({"-a", "dive"});
    EXPECT_EQ(read("dive.asc"), program_.run({"-qyao", "link.asc", "dive"}).out_);
    EXPECT_EQ("dive dive.asc dive.kml dive.kmz empty empty directory link.asc pipe.kml ", program_.list());
    EXPECT_TRUE(std::filesystem::is_fifo(path("pipe.kml")) && std::filesystem::is_symlink("/dev/stdout"));
}

TEST_F(FailureTest, ADirectoryThatIsCutShortIsNotKept) {
    const std::string log = read("dive"), unread = "The file dive.dir is not replaced, no directory was read";
    for (const bool isThereBefore : {false, true}) {
        {
            const FileSizeLimit limit(300);
            EXPECT_EQ(
                "(ERROR): Failed to write dive.dir: File too large\n"
                "(ERROR): The output dive.dir is incomplete and is not kept\n",
                MessagesIn(run({"-d", "dive"})));
        }
        EXPECT_EQ(isThereBefore ? "dive dive.dir empty empty directory " : "dive empty empty directory ",
                  program_.list());
        if (!isThereBefore) runInSilence({"-d", "dive"});
    }
    const std::string whole = read("dive.dir");
    write("dive", "");
    EXPECT_EQ("(ERROR): No directory in dive\n(ERROR): " + unread + "\n", MessagesIn(run({"-d", "dive"})));
    EXPECT_EQ(whole, read("dive.dir"));
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

// The text ends, the files beside it do not.
TEST_F(FailureTest, AReaderThatLeaves) {
    write("dive", DiveLog::Of(20000));
    runInSilence({"-n", "dive"});
    const std::string command = "cd " + path("") + " && (" UNSERIALIZE_PROGRAM " -qO";
    const std::string outcome = "; echo $? >&2) 2>err | head -1";
    EXPECT_EQ("VERSION 8\n", OutputOf(command + "ao stdout dive" + outcome));
    EXPECT_EQ("0\n", read("err").substr(read("err").find('\n') + 1));  // one message before
    OutputOf(command + "ano stdout dive" + outcome);
    EXPECT_TRUE(read("dive.nc") == read("stdout"));
    EXPECT_EQ("0\n", read("err").substr(read("err").find('\n') + 1));  // one message before
}

// At the start, in the midst, and when no more than the end of the file does not fit any more.
TEST_F(FailureTest, ADiskThatFillsUp) {
    write("dive", DiveLog::Of(20000));
    for (const std::string option : {"-a asc", "-c csv", "-n nc", "-N nc4", "-m mat", "-H h5"}) {
        const std::string name = "dive." + option.substr(3);
        run({option.substr(0, 2), "dive"});
        const size_t whole = read(name).size();
        for (const size_t room : {size_t(4000), whole / 2, whole - 1}) {
            const FileSizeLimit limit(room);
            expectMessage("Failed to write " + name + ": File too large", {option.substr(0, 2), "dive"});
            EXPECT_TRUE(option != "-a asc" || room == read(name).size());
        }
    }
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
