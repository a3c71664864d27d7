#include <filesystem>

#include "RunFixture.h"
#include "support/FileSizeLimit.h"

// How whole runs name what they make. Every log here lasts from 12:30 to 12:31.

class NamingTest : public RunFixture {
protected:
    NamingTest() {
        for (const char* log : {"slate", "dive"}) write(log, DiveLog::Of(65));
    }
};

TEST_F(NamingTest, DatesAndLinks) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"dive"}, "dive dive_201206011230_201206011231.asc slate "},
        {{"-al", "./slate"}, "201206011230_201206011231.asc 201206011230_201206011231.log dive slate "},
        {{"-aO", "dive"}, "dive dive.asc slate "},
        {{"-aOy", "dive"}, "dive dive.asc slate "},
        {{"-ay", "dive"}, "dive dive.asc dive_201206011230_201206011231.asc slate "},
        {{"-ao", "out.txt", "slate"}, "dive out_201206011230_201206011231.txt slate "},
        {{"-ao", "slate.txt", "slate"}, "dive slate slate_201206011230_201206011231.txt "},
        {{"-ao", "a.b.txt", "dive"}, "a.b_201206011230_201206011231.txt dive slate "},
        {{"-ao", ".txt", "dive"}, "_201206011230_201206011231.txt dive slate "},
        {{"-ao", "out", "dive"}, "dive out slate "},
        {{"-d", "dive"}, "dive dive.dir slate "},
        {{"-ad", "dive"}, "dive dive.dir dive_201206011230_201206011231.asc slate "},
        {{"-as", "2013-01-01T00:00:00", "dive"}, "dive dive.asc slate "},  // no entry, no dates
        {{"-ao", "stdout", "dive"}, "dive slate "},
    };
    for (const auto& [arguments, files] : cases) {
        EXPECT_EQ(0, program_.run(arguments).status_);
        EXPECT_EQ(files, program_.list()) << ::testing::PrintToString(arguments);
        for (const auto& entry : std::filesystem::directory_iterator(path(""))) {
            if (entry.path().filename() != "dive" && entry.path().filename() != "slate") remove(entry.path());
        }
    }
}

TEST_F(NamingTest, TheDatesSpanAllInputs) {
    write("later", DiveLog::Of(65, 600));
    program_.run({"-qao", "out.txt", "dive;later"});
    EXPECT_TRUE(program_.files().has("out_201206011230_201206011241.txt")) << program_.list();
}

TEST_F(NamingTest, TheNameOfTheLogMayEndInTheUsualOne) {
    std::filesystem::create_directory(path("logs.d"));
    const std::pair<const char*, const char*> cases[] = {{"myslate", "my201206011230_201206011231.asc"},
                                                         {"SLATE", "SLATE_201206011230_201206011231.asc"}};
    for (const auto& [log, output] : cases) {
        write(log, DiveLog::Of(65));
        program_.run({"-qa", log});
        program_.run({"-qao", "logs.d/out", log});  // the dot is not the name's
        EXPECT_TRUE(program_.files().has(output) && program_.files().has("logs.d/out")) << log;
    }
}

TEST_F(NamingTest, EarlierResultsGoOnlyWhereTheDirectoryIsNamed) {
    const TempDir& files = program_.files();
    const std::pair<const char*, bool> earlier[] = {
        // with whether it stays
        {"dive_201206011230_201206011230.asc", false}, {"dive_201206011230.asc", false},
        {"dive_201206011229_201206011300.asc", true},  {"dive_201206011230_201206011300.nc", true},
        {"Dive_201206011230_201206011300.asc", true},  {"dive_201206011230_x.asc~", true}};
    for (const auto& [name, stays] : earlier) write(name, "earlier");
    EXPECT_EQ(1u, CountOf(program_.run({"-a", "dive"}).out_, "(ERROR): Unserialize is unable to open directory: \n"));
    for (const auto& [name, stays] : earlier) EXPECT_TRUE(files.has(name)) << name;
    const std::string messages = MessagesIn(program_.run({"-ay", "./dive"}).out_);
    EXPECT_EQ(1u, CountOf(messages, "(INFO): Removed ./dive_201206011230_201206011230.asc\n"));
    EXPECT_EQ(2u, CountOf(messages, "(INFO): Removed "));
    EXPECT_EQ(1u,
              CountOf(messages, "(INFO): Saved ./dive_201206011230_201206011231.asc\n(INFO): Symlink: ./dive.asc\n"));
    for (const auto& [name, stays] : earlier) EXPECT_EQ(stays, files.has(name)) << name;
    EXPECT_EQ("dive_201206011230_201206011231.asc", std::filesystem::read_symlink(path("dive.asc")));
}

TEST_F(NamingTest, AnInputIsNeitherRemovedNorReplaced) {
    const std::string log = DiveLog::Of(65), dated = "dive_201206011230_201206011231.asc";
    const std::pair<std::string, std::string> cases[] = {
        {"dive_201206011230_x.asc", ""},
        {dated, "(ERROR): The output ./dive.asc is not renamed to ./" + dated + ", which is an input of this run\n"}};
    for (const auto& [input, message] : cases) {
        write(input, log);
        EXPECT_EQ(message, MessagesIn(program_.run({"-qao", "./dive.asc", input}).out_));
        EXPECT_TRUE(log == read(input)) << input;
    }
}

TEST_F(NamingTest, AnOutputThatCannotBeRenamedKeepsItsName) {
    std::filesystem::create_directory(path("dive_201206011230_201206011231.asc"));
    write("dive_201206011230.asc", "earlier");
    EXPECT_EQ("(ERROR): Could not rename ./dive.asc to ./dive_201206011230_201206011231.asc due to Is a directory\n",
              MessagesIn(program_.run({"-qa", "./dive"}).out_));
    EXPECT_EQ("earlier", read("dive_201206011230.asc"));
}

// It would take the place of a good one.
TEST_F(NamingTest, AnIncompleteResultKeepsItsName) {
    write("dive", DiveLog::Of(20000));
    std::filesystem::create_directory(path("dive.kmz"));
    const std::pair<const char*, const char*> cases[] = {{"-ay", "asc"}, {"-cy", "csv"}, {"-ny", "nc"},
                                                         {"-Ny", "nc4"}, {"-my", "mat"}, {"-ky", "kml"}};
    for (const auto& [options, extension] : cases) {
        const std::string earlier = "dive_201206011230_201206011231." + std::string(extension);
        const std::string name = "./dive." + std::string(extension);
        write(earlier, "earlier");
        const FileSizeLimit limit(30000);
        const std::string messages = MessagesIn(program_.run({"-q", options, "./dive"}).out_);
        const std::string reason =
            extension == std::string("kml") ? "" : "(ERROR): Failed to write " + name + ": File too large\n";
        EXPECT_EQ(reason + "(ERROR): The output " + name + " is incomplete and keeps its name\n", messages);
        EXPECT_EQ("earlier", read(earlier));
        EXPECT_TRUE(std::filesystem::is_regular_file(path(name)));
    }
}

TEST_F(NamingTest, AnEmptyNameIsNone) {
    EXPECT_EQ("(ERROR): No output name is given\n", MessagesIn(run({"-al", "dive", "-o"})));
}

TEST_F(NamingTest, OutputsThatShareOneName) {
    const std::string out = run({"-alo", "out", "dive"});
    EXPECT_EQ(1u, CountOf(out, "(ERROR): Several outputs are written to out\n"));
    EXPECT_EQ(1u, CountOf(read("out"), "VERSION"));  // the text is created after the syslog
    runInSilence({"-ao", "out", "dive"});
    EXPECT_EQ("(ERROR): Several outputs are written to stdout\n", MessagesIn(run({"-nNao", "stdout", "dive"})));
    EXPECT_EQ("", MessagesIn(run({"-nao", "stdout", "dive"})));
}
