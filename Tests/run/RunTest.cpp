#include <filesystem>
#include <tuple>

#include "RunFixture.h"
#include "support/WorkedLog.h"

// What a run makes of its inputs.

namespace {

typedef RunFixture RunTest;

std::string WorkedLines() {
    std::string lines;
    for (const WorkedEntry& entry : WORKED_LOG) lines += entry.line_ + std::string("\n");
    return lines;
}

std::string WorkedBytes() {
    const Str bytes = WorkedLogBytes();
    return std::string(bytes.data(), bytes.length());
}

}  // namespace

TEST_F(RunTest, WithoutOptionsEveryEntryBecomesALine) {
    write("dive", WorkedBytes());
    const Outcome outcome = program_.run({"-O", "dive"});
    EXPECT_EQ(0, outcome.status_);
    EXPECT_EQ("", outcome.err_);
    EXPECT_EQ("dive dive.asc ", program_.list());
    EXPECT_EQ(WorkedLines(), read("dive.asc"));
    EXPECT_NE(std::string::npos, outcome.out_.find("[unserialize](INFO): Reading data from dive\n"));
    EXPECT_EQ("Unserialize done.\n", outcome.out_.substr(outcome.out_.rfind('\n', outcome.out_.size() - 2) + 1));
}

TEST_F(RunTest, TheDirectoryMakesALogReadableThatHasNone) {
    DiveLog dive;
    dive.begin();
    const size_t directoryLength = dive.bytes().size();
    dive.cycles(0, 20);
    write("dive", dive.bytes());
    write("bare", dive.bytes().substr(directoryLength));
    for (const std::vector<std::string>& options :
         {std::vector<std::string>{"-d", "dive"}, {"-ad", "dive"}, {"-adr", "Dive", "dive"}}) {
        write("dive.dir", "*v 0008\n*e code=0000 elementURI=\"Other.x\" type=02\n");  // left behind by another log
        run(options);
        std::filesystem::rename(program_.files().path("dive.dir"), program_.files().path("bare.dir"));
        runInSilence({"-a", "bare", "Depth.depth", "Nav.speed"});
        EXPECT_EQ(40u, CountOf(read("bare.asc"), "==>") + CountOf(read("bare.asc"), "-->")) << options[0];
    }
}

// A time that cannot be read is ignored.
TEST_F(RunTest, TheTimeWindowIncludesItsBounds) {
    write("dive", DiveLog::Of(10));
    runInSilence({"-ase", "2012-06-01T12:30:02.25", "2012-06-01T12:30:04.25", "dive", "Depth.depth"});
    const std::string lines = read("dive.asc");
    EXPECT_EQ(3u, CountOf(lines, "\n"));
    EXPECT_EQ(0u, lines.find("2012-06-01T12:30:02.250Z"));
    EXPECT_NE(std::string::npos, lines.find("2012-06-01T12:30:04.250Z"));
    const std::string said = program_.run({"-qOls", "soon", "dive"}).out_;
    EXPECT_NE(std::string::npos, said.find("(ERROR): Cannot read the start time soon, it is ignored\n"));
    EXPECT_EQ(10u, CountOf(read("dive.log"), "\n"));
}

TEST_F(RunTest, WordsThatMatchNothing) {
    DiveLog other;
    other.add(other.log_.version(8));
    other.declare(other.log_.declareServing("depth", "Other.x", Units::METER));
    other.add(other.log_.cycle(20));
    write("dive", DiveLog::Of(10));
    write("other", other.bytes());
    DiveLog bare;
    bare.add(bare.log_.cycle(0));
    write("bare", bare.bytes());
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"-aclno", "out", "dive;other", "Nav.speed", "No.such", "Other.x", "Depth.depth", "(second)", "Other.x",
          "(foot)", "depth", "(radian)", "Other.x", "(count)", "latitude", "No.such"},
         "(ERROR): No variable \"No.such\" is in the logs\n"
         "(ERROR): The unit \"second\" does not fit the variable \"Depth.depth\"\n"
         "(ERROR): The unit \"radian\" does not fit the variable \"depth\"\n"
         "(ERROR): No variable \"latitude\" is in the logs\n"},  // a standard name that no element serves
        {{"-a", "missing", "Nav.x"}, "(ERROR): No entry was read from missing: No such file or directory\n"},
        {{"-a", "bare", "Nav.x"}, "(ERROR): No variable \"Nav.x\" is in the logs\n"},
        {{"-dppppp", "Other", "Navigation", "Nav", "Na", "nav", "dive"},
         "(ERROR): No variable of the component \"Other\" is in the logs\n"
         "(ERROR): No variable of the component \"Na\" is in the logs\n"
         "(ERROR): No variable of the component \"nav\" is in the logs\n"},
        {{"-cppo", "Other", "Depth", "out", "dive;other"}, ""},
        {{"-lr", "Survey", "dive"}, "(ERROR): No mission \"Survey\" is in the logs\n"},
        {{"-ls", "2012-06-01T12:30:10", "dive"}, "(ERROR): No entry lies within -s 2012-06-01T12:30:10.000Z\n"},
        {{"-lser", "2012-06-01T12:30:10", "2012-06-01T12:30:20.5", "Nav", "dive"},
         "(ERROR): No entry lies within -s 2012-06-01T12:30:10.000Z -e 2012-06-01T12:30:20.500Z -r Nav\n"},
        {{"-lr", "Nav", "dive"}, "(ERROR): No entry lies within -r Nav\n"},
        {{"-lso", "2012-06-01T12:30:10", "out", "dive;other"}, ""},
        {{"-le", "2012-06-01T12:30:00.25", "dive"}, ""},
        {{"-ds", "2012-06-01T12:30:10", "dive"}, ""},  // reads no entry
        {{"-lSse", "z", "2012-06-01T12:30:10", "2012-06-01T12:30:05", "dive"},
         "(ERROR): Cannot read the severity \"z\", it stands for x (none)\n"
         "(ERROR): The end time 2012-06-01T12:30:05.000Z is before the start time 2012-06-01T12:30:10.000Z, no entry "
         "lies between them\n"},
    };
    for (const auto& [arguments, messages] : cases) {
        std::string said = MessagesIn(run(arguments));
        const std::string shared = "(ERROR): Several outputs are written to out\n";
        if (said.find(shared) == 0) said.erase(0, shared.size());
        EXPECT_EQ(messages, said) << ::testing::PrintToString(arguments);
    }
}

TEST_F(RunTest, ASeverityThresholdLimitsTheSyslog) {
    write("dive", DiveLog::Of(10));
    const std::pair<const char*, size_t> cases[] = {{"d", 10}, {"i", 10}, {"e", 5}, {"m", 0}, {"x", 0}};
    for (const auto& [letter, lines] : cases) {
        runInSilence({"-lS", letter, "dive"});
        EXPECT_EQ(lines, CountOf(read("dive.log"), "\n")) << letter;
    }
}

TEST_F(RunTest, AMissionLimitsTheOutputToItself) {
    DiveLog dive;
    dive.begin();
    dive.add(dive.log_.nameEntry(dive.log_.declare("Survey.loop")));
    dive.cycles(0, 3);
    dive.add(dive.log_.running("Survey", 3.0, 1));
    dive.cycles(3, 2);
    dive.add(dive.log_.running("Survey", 5.0, -1));  // preempted: still in it
    dive.cycles(5, 2);
    dive.add(dive.log_.running("Other", 6.9, 0));
    dive.add(dive.log_.running("Survey", 7.0, 0));
    dive.cycles(7, 5);
    write("dive", dive.bytes());
    runInSilence({"-alr", "Survey", "dive"});
    EXPECT_EQ(4u, CountOf(read("dive.log"), "\n"));
    EXPECT_EQ(4u * 4 + 4, CountOf(read("dive.asc"), "\n")) << read("dive.asc");  // all markers are in it
}

TEST_F(RunTest, GpsFixesCorrectTheTimesUnlessTheyAreLeftAlone) {
    DiveLog dive;
    dive.begin();
    dive.add(dive.log_.cycle(0));
    dive.add(dive.log_.syslog(1, "GPS fix at: 1338553901", Syslog::INFO, "Nav"));  // 100 s on
    dive.add(dive.log_.syslog(2, "after", Syslog::INFO, "Nav"));
    write("a", dive.bytes());
    write("b", DiveLog::Of(1, 5));
    runInSilence({"-lo", "out", "a;b"});
    EXPECT_NE(std::string::npos, read("out").find("2012-06-01T12:31:42.000Z,1338553902.000 [Nav](INFO): after"));
    EXPECT_NE(std::string::npos, read("out").find("2012-06-01T12:31:45.750Z"));  // in the next input too
    runInSilence({"-lLo", "out", "a;b"});
    EXPECT_NE(std::string::npos, read("out").find("2012-06-01T12:30:02.000Z,1338553802.000 [Nav](INFO): after"));
    EXPECT_NE(std::string::npos, read("out").find("2012-06-01T12:30:05.750Z"));
}

// A fix that cannot be true leaves the directory as it is, also what follows it.
TEST_F(RunTest, AWrongFixHidesNoName) {
    for (int i = 0; i < 20; ++i) {
        DiveLog dive;
        dive.begin();
        dive.add(dive.log_.cycle(0));
        const std::string fix = "GPS fix at: " + std::to_string(4800000001 * (i + 1)) + ".25";
        dive.add(dive.log_.syslog(0.1 + 0.01 * i, fix.c_str(), Syslog::INFO, "Nav"));
        DataAccess* const late = dive.log_.declare("Other.late");
        dive.declare(late);
        dive.add(dive.log_.data(late, 2, 1));
        write("dive", dive.bytes());
        runInSilence({"-Lc", "dive"});
        EXPECT_EQ(0u, read("dive.csv").find("Timestamp,EpochSeconds,Depth.depth,Nav.speed,Other.late\n")) << i;
    }
}

// What a later part says of the version does not hold for the first one, also beside a side file that is not read, but
// what one input says holds for the next.
TEST_F(RunTest, AVersionHoldsFromWhereItStands) {
    DiveLog older;
    older.add(older.log_.version(3));
    write("parts0000", DiveLog::Of(3));
    write("parts0001", older.bytes());
    for (const char* options : {"-a", "-ad", "-ad"}) {
        runInSilence({options, "parts"});
        EXPECT_EQ(3u, CountOf(read("parts.asc"), "Depth.depth=")) << options;
    }
    write("older", older.bytes());
    DiveLog silent;
    Log::Current().version() = 3;
    silent.begin();
    silent.cycles(0, 3);
    write("without", silent.bytes().substr(strlen("*v 0008\n")));
    runInSilence({"-ao", "out", "older;without"});
    EXPECT_EQ(3u, CountOf(read("out"), "Depth.depth="));
}

// A log may give one name two codes, and both lead to it; it says no more than once what is wrong with a name.
TEST_F(RunTest, RecordsThatAreAmiss) {
    DiveLog dive;
    dive.begin();
    const size_t element = dive.bytes().find("*e code=0000");
    std::string again = dive.bytes().substr(element, dive.bytes().find('\n', element) + 1 - element);
    dive.declare(dive.log_.declareBlob("Depth.array", Units::NONE, BLOB_FLOAT64LE, 65535, 65535));
    dive.cycles(0, 2);
    write("dive", std::string(dive.bytes()).insert(element + again.size(), again.replace(8, 4, "0017")));
    EXPECT_EQ(1u, CountOf(run({"-ab", "dive"}), "(ERROR)"));
    EXPECT_EQ(2u, CountOf(read("dive.asc"), "Depth.depth="));
    const std::string text = read("dive.asc");
    run({"-ao", "again", "dive.bin"});
    EXPECT_EQ(text, read("again"));
}

TEST_F(RunTest, InputsOfEveryKind) {
    const TempDir& files = program_.files();
    std::filesystem::create_directories(files.path("Logs/latest"));
    files.write("Logs/latest/slate", DiveLog::Of(3));
    files.write("parts0000", DiveLog::Of(2));
    files.write("parts0001", DiveLog::Of(3, 2));
    std::filesystem::create_directory(files.path("priority"));
    files.write("priority/Courier0000", DiveLog::Of(4));
    for (const char* const part : {"gap0000", "gap0020", "gap0041"}) files.write(part, DiveLog::Of(1));
    const std::tuple<std::vector<std::string>, const char*, size_t> cases[] = {
        // with the messages in the output
        {{"-l", "gap"}, "gap.log", 2},  // nineteen missing numbers are bridged, twenty are the end
        {{"-l"}, "Logs/latest/slate.log", 3},
        {{"-l", "Logs/latest"}, "Logs/latest/slate.log", 3},
        {{"-l", "parts"}, "parts.log", 5},
        {{"-l", "parts0000"}, "parts0000.log", 5},
        {{"-lo", "both.log", "parts;Logs/latest\n"}, "both.log", 0},  // one name with a ';'
        {{"-lo", "both.log", "parts;Logs/latest;"}, "both.log", 8},
        {{"-lP", "c", "priority/slate"}, "priority/slate.log", 4},
    };
    for (const auto& [arguments, output, messages] : cases) {
        run(arguments);
        EXPECT_EQ(messages, CountOf(read(output), "\n")) << ::testing::PrintToString(arguments);
    }
}

// On a terminal and only there, unless it is to be quiet. What is written is not taken for a while in the midst of the
// third input.
TEST_F(RunTest, ProgressCountsEveryInput) {
    synthesize("--minutes 1");
    runInSilence({"-a", "dive"});
    const std::string before = std::to_string(read("dive.asc").size() * 23 / 10);
    const auto shown = [&](const std::string& options) {
        return OutputOf("cd " + path("") + " && script -qec \"" UNSERIALIZE_PROGRAM " " + options +
                        " stdout 'dive;dive;dive' | (head -c " + before + "; sleep 0.3; cat) >/dev/null\" /dev/null");
    };
    const std::string lines = shown("-aOo");
    EXPECT_LT(67, atoi(lines.substr(lines.rfind('\r', lines.rfind('%')) + 4).c_str())) << lines;
    EXPECT_EQ(" left\r\033[K", lines.substr(lines.size() - 9));
    EXPECT_EQ("", shown("-aqOo") + shown("2>said -aOo"));
    EXPECT_EQ("", read("said"));
}
