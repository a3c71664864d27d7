#include "RunFixture.h"

// The tables of small logs, whole.

namespace {

class TableRunTest : public RunFixture {
protected:
    // The table that the options and names make of the log.
    std::string table(const std::string& log, std::vector<std::string> arguments, const char* messages = "") {
        write("dive", log);
        arguments.insert(arguments.begin(), "-c");
        EXPECT_EQ(messages, MessagesIn(run(arguments)));
        return read("dive.csv");
    }
    // What Python's csv module reads of the table: its rows, and the numbers of columns that occur.
    std::string readBack() {
        return OutputOf("python3 -c \"import csv; r = list(csv.reader(open('" + path("dive.csv") +
                        "', newline=''))); print(len(r), sorted({len(c) for c in r}))\"");
    }
};

// Three cycles of one second: at 0.25 s the depth, 0, 0.5 and 1 m; at 0.5 s the speed, 1.5 m/s.
std::string Dive() {
    return DiveLog::Of(3);
}

}  // namespace

TEST_F(TableRunTest, ARowACycle) {
    EXPECT_EQ(
        "Timestamp,EpochSeconds,Depth.depth,No.such,Nav.speed\n"
        "2012-06-01T12:30:00.000Z,1338553800.000,0.000000 cm,nan,1.500000 m/s\n"
        "2012-06-01T12:30:01.000Z,1338553801.000,50.000000 cm,nan,1.500000 m/s\n"
        "2012-06-01T12:30:02.000Z,1338553802.000,100.000000 cm,nan,1.500000 m/s\n",
        table(Dive(), {"dive", "Depth.depth", "(centimeter)", "No.such", "Nav.speed"},
              "(ERROR): No variable \"No.such\" is in the logs\n"));
}

TEST_F(TableRunTest, WithoutNamesEveryVariable) {
    EXPECT_EQ(
        "Timestamp,EpochSeconds,Depth.depth,Nav.speed\n"
        "2012-06-01T12:30:00.000Z,1338553800.000,0.000000,1.500000\n",
        table(DiveLog::Of(1), {"-h", "dive"}));
    EXPECT_EQ(
        "Timestamp,EpochSeconds,Nav.speed\n"
        "2012-06-01T12:30:00.000Z,1338553800.000,1.500000 m/s\n",
        table(DiveLog::Of(1), {"-p", "Nav", "dive"}));
}

TEST_F(TableRunTest, InterpolatedARowForEachTime) {
    EXPECT_EQ(
        "Timestamp,EpochSeconds,Depth.depth,Nav.speed\n"
        "2012-06-01T12:30:00.250Z,1338553800.250,0.000000,nan\n"
        "2012-06-01T12:30:00.500Z,1338553800.500,0.125000,1.500000\n"
        "2012-06-01T12:30:01.250Z,1338553801.250,0.500000,1.500000\n"
        "2012-06-01T12:30:01.500Z,1338553801.500,0.625000,1.500000\n"
        "2012-06-01T12:30:02.250Z,1338553802.250,1.000000,1.500000\n"
        "2012-06-01T12:30:02.500Z,1338553802.500,1.000000,1.500000\n"
        "2012-06-01T12:30:02.500Z,1338553802.500,1.000000,1.500000\n",
        table(Dive(), {"-ih", "dive", "Depth.depth", "Nav.speed"}));
}

TEST_F(TableRunTest, Thinned) {
    const std::string header = "Timestamp,EpochSeconds,Depth.depth\n";
    EXPECT_EQ(header +
                  "2012-06-01T12:30:00.250Z,1338553800.250,0.000000 m\n"
                  "2012-06-01T12:30:02.250Z,1338553802.250,1.000000 m\n"
                  "2012-06-01T12:30:02.250Z,1338553802.250,1.000000 m\n",
              table(Dive(), {"-i", "dive", "Depth.depth", "0.1"}));
    // Without interpolation the cycle start after the points ends the row of the one before.
    EXPECT_EQ(header +
                  "2012-06-01T12:30:00.000Z,1338553800.000,1.000000 m\n"
                  "2012-06-01T12:30:02.000Z,1338553802.000,1.000000 m\n",
              table(Dive(), {"dive", "Depth.depth", "0.1"}));
}

TEST_F(TableRunTest, ANameListedTwiceFillsBothColumns) {
    const std::string header = "Timestamp,EpochSeconds,Depth.depth,Depth.depth\n";
    EXPECT_EQ(header +
                  "2012-06-01T12:30:00.000Z,1338553800.000,0.000000 m,0.000000 cm\n"
                  "2012-06-01T12:30:01.000Z,1338553801.000,0.500000 m,50.000000 cm\n",
              table(DiveLog::Of(2), {"dive", "Depth.depth", "Depth.depth", "(centimeter)"}));
    const std::string rows = header +
                             "2012-06-01T12:30:00.250Z,1338553800.250,0.000000,0.000000\n"
                             "2012-06-01T12:30:01.250Z,1338553801.250,0.500000,0.500000\n"
                             "2012-06-01T12:30:01.250Z,1338553801.250,0.500000,0.500000\n";
    EXPECT_EQ(rows, table(DiveLog::Of(2), {"-ih", "dive", "Depth.depth", "Depth.depth"}));
    EXPECT_EQ(rows, table(DiveLog::Of(2), {"-ih", "dive", "Depth.depth", "1", "Depth.depth", "0.01"}));
}

// An access may tell any code for its element, and still bring texts as the best of its universal.
TEST_F(TableRunTest, TextsOfAnElementThatNobodyCanName) {
    std::string log =
        "*v 0008\n*n code=0000 name=\"A\"\n*e code=0001 elementURI=\"depth\" type=04\n"
        "*a code=0000 owner=0000 element=FFFF universal=0001 unitName=\"none\" type=00 size=0001 fl=01\n";
    for (long long second = 0; second < 3; ++second) {
        const long long changed = (1338553800 + 32445541 + second) << 21 | 1;
        log += std::string("\x0C\xFF") + std::string(reinterpret_cast<const char*>(&changed), sizeof changed);
        log += std::string("\x04\0text", 6);
    }
    write("dive", log);
    for (const char* options : {"-cqOi", "-kqOi", "-nqOi"}) {
        EXPECT_EQ(0, program_.run({options, "dive", "depth"}).status_) << options;
    }
}

// What a log and a user can bring that is no plain number in its unit.
TEST_F(TableRunTest, EveryRowHasItsColumns) {
    DiveLog dive;
    dive.begin();
    DataAccess* text = dive.log_.declareText("Nav.text");
    DataAccess* blob = dive.log_.declareBlob("Nav.blob", Units::METER, BLOB_FLOAT32LE, 2);
    DataAccess* number = dive.log_.declare("Nav.number");
    for (DataAccess* access : {text, blob, number}) dive.declare(access);
    const std::pair<const char*, double> cycles[] = {
        {"a,b", NAN}, {"say \"a\"", INFINITY}, {"two\r\nlines", -INFINITY}, {"", 1e40}};
    int second = 0;
    for (const auto& [shown, value] : cycles) {
        dive.add(dive.log_.cycle(second));
        dive.add(dive.log_.text(text, second, shown));
        dive.add(dive.log_.data(number, second++, value));
    }
    dive.add(dive.log_.blob(blob, second, std::vector<float>{1, 2}));
    EXPECT_EQ(
        "Timestamp,EpochSeconds,Nav.text,Nav.number,Nav.blob,\"No,\"\"such\"\"\"\n"
        "2012-06-01T12:30:00.000Z,1338553800.000,\"a,b\",nan n/a,nan,nan\n"
        "2012-06-01T12:30:01.000Z,1338553801.000,\"say \"\"a\"\"\",inf n/a,nan,nan\n"
        "2012-06-01T12:30:02.000Z,1338553802.000,\"two\r\nlines\",-inf n/a,nan,nan\n"
        "2012-06-01T12:30:03.000Z,1338553803.000,,100000000000000003037860284270 n/a,8 bytes of meter,nan\n",
        table(dive.bytes(), {"dive", "Nav.text", "Nav.number", "(no_such_unit)", "Nav.blob", "No,\"such\""},
              "(ERROR): Cannot read the unit \"no_such_unit\", the log's unit is used\n"
              "(ERROR): No variable \"No,\"such\"\" is in the logs\n"));
    EXPECT_EQ("5 [6]\n", readBack());
    const std::string unfit = table(dive.bytes(), {"dive", "Nav.blob", "(second)", "Depth.depth", "(second)"},
                                    "(ERROR): The unit \"second\" does not fit the variable \"Nav.blob\"\n"
                                    "(ERROR): The unit \"second\" does not fit the variable \"Depth.depth\"\n");
    EXPECT_NE(std::string::npos, unfit.find("8 bytes of second,nan\n")) << unfit;
    table(dive.bytes(), {"-i", "dive"});
    EXPECT_EQ("7 [7]\n", readBack());
}

TEST_F(TableRunTest, TimesThatJump) {
    DiveLog dive;
    dive.begin();
    for (const double start : {100., 0., 1e6}) dive.cycles(static_cast<int>(start), 1);
    const std::string cycles = table(dive.bytes(), {"dive", "Depth.depth"});
    EXPECT_EQ(4u, CountOf(cycles, "\n"));
    EXPECT_LT(cycles.find("12:31:40.000Z"), cycles.find("12:30:00.000Z"));
    EXPECT_EQ(5u, CountOf(table(dive.bytes(), {"-i", "dive", "Depth.depth"}), "\n"));  // the last row twice
}
