#include "RunFixture.h"

// Side files that are another log's, and logs whose directories contradict each other: no value stands under a name or
// a unit that the log does not give it, and every contradiction is told once.

namespace {

// A log of one variable in its own unit, of so many values from `value` on.
struct OneVariable {
    const char* name_;
    const Unit& unit_;
    double value_;
};
const OneVariable DEPTH = {"Depth.depth", Units::METER, 7};
const OneVariable TEMPERATURE = {"Bath.temperature", Units::KELVIN, 280};
const OneVariable DEPTH_IN_KILOMETERS = {"Depth.depth", Units::KILOMETER, 7};

struct LogBytes {
    std::string directory_;
    std::string data_;
    std::string all() const { return directory_ + data_; }
};

LogBytes LogOf(const OneVariable& variable, int firstSecond = 0, int count = 10) {
    DiveLog dive;
    DataAccess* const access = dive.log_.declare(variable.name_, variable.unit_, FLOAT4);
    dive.add(dive.log_.version(8));
    dive.declare(access);
    const size_t directoryLength = dive.bytes().size();
    for (int i = firstSecond; i < firstSecond + count; ++i) {
        dive.add(dive.log_.cycle(i));
        dive.add(dive.log_.data(access, i + 0.25, variable.value_));
    }
    return {dive.bytes().substr(0, directoryLength), dive.bytes().substr(directoryLength)};
}

}  // namespace

class DirectoryTest : public RunFixture {
protected:
    std::string said(const std::vector<std::string>& arguments) { return MessagesIn(run(arguments)); }
    // What the log "dive" becomes as text and as a table.
    std::string convert() {
        run({"-a", "dive"});
        run({"-c", "dive"});
        return read("dive.asc") + read("dive.csv");
    }
    static LogBytes DepthLog() { return LogOf(DEPTH); }
};

TEST_F(DirectoryTest, ASideFileOfAnotherLogIsLeftAside) {
    write("dive", DepthLog().all());
    const std::string text = convert();
    DiveLog older;
    older.add(older.log_.version(5));
    std::string olderDirectory = older.bytes() + DepthLog().directory_.substr(older.bytes().size());
    for (const std::string& sideFile :
         {LogOf(TEMPERATURE).directory_, LogOf(DEPTH_IN_KILOMETERS).directory_, olderDirectory}) {
        write("dive.dir", sideFile);
        for (const char* const options : {"-a", "-ac"}) {
            const std::string message = said({options, "dive"});
            EXPECT_EQ(0u, message.find("(ERROR): Log dive contradicts its side file dive.dir: ")) << message;
            EXPECT_EQ(1u, CountOf(message, "\n")) << message;
        }
        EXPECT_TRUE(text == convert()) << sideFile;
    }
}

TEST_F(DirectoryTest, OfSeveralInputsEachSideFileIsToldOfOnce) {
    for (const char* const name : {"a", "b"}) {
        write(name, DepthLog().all());
        write(name + std::string(".dir"), "damaged " + LogOf(TEMPERATURE).directory_);
    }
    const std::string messages = said({"-co", "out.csv", "a;b"});
    for (const char* const name : {"a", "b"}) {
        EXPECT_EQ(1u, CountOf(messages, std::string("Log ") + name + " contradicts its side file")) << messages;
        EXPECT_EQ(1u, CountOf(messages, std::string("Skipped 8 bytes of ") + name + ".dir from byte 0x0")) << messages;
    }
}

// Only what a log says before its first other entry is compared at once; the rest as it comes.
TEST_F(DirectoryTest, ASideFileThatIsContradictedLater) {
    const LogBytes depth = DepthLog();
    const LogBytes temperature = LogOf(TEMPERATURE, 10);
    write("dive", depth.data_ + temperature.all());
    write("dive.dir", depth.directory_);
    const std::string messages = said({"-a", "dive"});
    EXPECT_EQ(3u, CountOf(messages, "(ERROR): Log dive contradicts its side file dive.dir: ")) << messages;
    EXPECT_EQ(3u, CountOf(messages, "\n")) << messages;
    EXPECT_EQ(10u, CountOf(read("dive.asc"), "=7.000000 m\n"));
    EXPECT_EQ(0u, CountOf(read("dive.asc"), "280"));
}

TEST_F(DirectoryTest, ALogWithoutADirectoryIsDamagedOnlyByItsSideFilesWord) {
    write("dive", DepthLog().data_);
    DiveLog foreign;
    foreign.declare(foreign.log_.declareText("Other.text"));
    write("dive.dir", foreign.bytes());
    const std::string messages = said({"-a", "dive"});
    EXPECT_EQ(1u, CountOf(messages, "; all that is known of its codes is from dive.dir\n")) << messages;
    write("dive", DepthLog().all() + "\x54");
    std::filesystem::remove(path("dive.dir"));
    EXPECT_EQ(0u, CountOf(said({"-a", "dive"}), "all that is known"));
}

// Logs that were joined: a code means what was said of it first; what it means later is stepped over.
TEST_F(DirectoryTest, NoValueStandsUnderAnothersNameOrUnit) {
    for (const OneVariable& other : {TEMPERATURE, DEPTH_IN_KILOMETERS}) {
        const std::string later = LogOf(other, 10).all();
        const std::string again = LogOf(DEPTH, 20).all();
        write("dive", DepthLog().all() + later + later + again);
        const std::string messages = said({"-ac", "dive"});
        EXPECT_EQ(&other == &DEPTH_IN_KILOMETERS ? 1u : CountOf(messages, "\n"),
                  CountOf(messages, "contradicts itself"))
            << messages;
        EXPECT_EQ(1u, CountOf(messages, "Log dive contradicts itself: data access code=0000 ")) << messages;
        const std::string text = convert();
        EXPECT_EQ(20u, CountOf(read("dive.asc"), "Depth.depth=7.000000 m\n"));
        for (const char* const wrong : {"280", "7000", "0.007"}) EXPECT_EQ(0u, CountOf(text, wrong)) << wrong;
    }
}

// The same element under another code's type: the bytes are passed over by what the log says now.
TEST_F(DirectoryTest, ValuesThatAreLeftOutAreSteppedOverByTheirOwnSize) {
    const std::string directory = DepthLog().directory_;
    for (const BinaryDataType type : {DOUBLE8, STRVALUE, UCHAR1}) {
        DiveLog dive;
        DataAccess* const access = dive.log_.declare("Depth.depth", Units::METER, type);
        dive.declare(access);
        for (int i = 20; i < 25; ++i) {
            dive.add(dive.log_.cycle(i));
            dive.add(type == STRVALUE ? dive.log_.text(access, i, "text of some length")
                                      : dive.log_.data(access, i, 3));
        }
        write("dive", DepthLog().all() + dive.bytes() + directory + LogOf(DEPTH, 30).data_);
        const std::string messages = said({"-a", "dive"});
        EXPECT_EQ(1u, CountOf(messages, "\n")) << messages;
        EXPECT_EQ(20u, CountOf(read("dive.asc"), "Depth-->Depth.depth=7.000000 m\n")) << type;
        EXPECT_EQ(20u, CountOf(read("dive.asc"), "Depth.depth=")) << type;
    }
}

TEST_F(DirectoryTest, OfManyContradictionsTheFirstAreShown) {
    std::string log;
    for (const char* const component : {"First", "Second"}) {
        DiveLog dive;
        for (int i = 0; i < 100; ++i) dive.declare(dive.log_.declare((component + ("." + std::to_string(i))).c_str()));
        log += dive.bytes();
    }
    write("dive", log);
    const std::string messages = said({"-ac", "dive"});
    EXPECT_EQ(31u, CountOf(messages, "\n")) << messages;
    EXPECT_EQ(1u, CountOf(messages, "Log dive contradicts itself in 71 more codes; their values are left out\n"));
}

// A log of one version that goes on as another, with and without a side file that says nothing.
TEST_F(DirectoryTest, AVersionHoldsFromWhereItStands) {
    DiveLog older;
    older.add(older.log_.version(3));
    const std::string log = DiveLog::Of(5) + older.bytes();
    std::string text;
    for (const char* const sideFile : {"none", "empty", "own"}) {
        for (const char* const options : {"-ac", "-a", "-ca"}) {
            write("dive", log);
            if (sideFile == std::string("empty")) write("dive.dir", "");
            if (sideFile == std::string("own")) run({"-d", "dive"});
            EXPECT_EQ("", said({options, "dive"})) << sideFile << options;
            if (text.empty()) text = read("dive.asc");
            EXPECT_EQ(5u, CountOf(read("dive.asc"), "Depth.depth=")) << sideFile << options;
        }
    }
    EXPECT_EQ(5u, CountOf(text, "Depth.depth="));
}

// A version that is not known changes nothing, so the side file tells the one that holds.
TEST_F(DirectoryTest, TheOwnSideFileOfALogOfUnknownVersionIsKept) {
    for (const int version : {2, 9}) {
        DiveLog dive;
        dive.add(dive.log_.version(static_cast<short>(version)));
        write("dive", dive.bytes() + DepthLog().all().substr(dive.bytes().size()));
        run({"-d", "dive"});
        EXPECT_EQ("(CRITICAL): Can only unserialize verisions 3 through 8\n", said({"-a", "dive"})) << version;
        EXPECT_EQ(10u, CountOf(read("dive.asc"), "=7.000000 m\n"));
    }
}
