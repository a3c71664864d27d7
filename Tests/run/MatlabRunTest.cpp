#include <cstdlib>

#include "RunFixture.h"

// The .mat and .h5 files of whole logs, as other programs read them.

class MatlabRunTest : public RunFixture {
protected:
    // How another library reads dive.mat.
    std::string shown() const { return OutputOf(MATCHECK_PROGRAM " " + path("dive.mat")); }
};

TEST_F(MatlabRunTest, EveryValueOfADiveIsInBothFiles) {
    synthesize("--minutes 4");
    run({"-a", "dive"});
    runInSilence({"-m", "-H", "dive"});
    const std::string differences = OutputOf(SCIENCE_PYTHON " -B " CHECK_MATLAB " " + path("dive.asc") + " " +
                                             path("dive.mat") + " " + path("dive.h5") + " 2>&1");
    EXPECT_LT(100000, atoi(differences.c_str())) << differences;
}

TEST_F(MatlabRunTest, AnotherLibraryReadsStructs) {
    write("dive", DiveLog::Of(3));
    runInSilence({"-m", "dive", "Depth.depth", "(foot)", "Nav.speed"});
    EXPECT_EQ(
        "MATLAB 7.3 MAT-file, Platform: GLNXA64, Created on: Fri Jun  1 12:30:00 2012 HDF5 schema 1.00 .              "
        "       \n"
        "Depth.depth.value double 3x1: 0 1.640419948 3.280839895\n"
        "Depth.depth.units char 1x2:ft\n"
        "Depth.depth.time double 3x1: 735021.5208 735021.5208 735021.5209\n"
        "Nav.speed.value double 3x1: 1.5 1.5 1.5\n"
        "Nav.speed.units char 1x3:m/s\n"
        "Nav.speed.time double 3x1: 735021.5208 735021.5209 735021.5209\n",
        shown());
}

// A straight line is its ends.
TEST_F(MatlabRunTest, ThinnedSeries) {
    write("dive", DiveLog::Of(4));
    runInSilence({"-m", "-H", "dive", "Nav.speed", "0.01", "Depth.depth", "0.01"});
    EXPECT_NE(std::string::npos, shown().find("Depth.depth.value double 2x1: 0 1.5\n")) << shown();
    EXPECT_NE(std::string::npos, shown().find("Nav.speed.value double 2x1: 1.5 1.5\n")) << shown();
    const std::string plain = OutputOf("h5dump -y -d /Depth/depth/value " + path("dive.h5") + " | tr -s ' \\n' ' '");
    EXPECT_NE(std::string::npos, plain.find("DATA { 0, 1.5 }")) << plain;
}

TEST_F(MatlabRunTest, AnotherLibraryReadsArraysAndCells) {
    DiveLog dive;
    DataAccess* const plane = dive.log_.declareBlob("A.plane", Units::METER, BLOB_UINT8, 2, 3);
    DataAccess* const row = dive.log_.declareBlob("A.row", Units::METER, BLOB_INT16LE, 2);
    DataAccess* const cube = dive.log_.declareBlob("A.cube", Units::METER, BLOB_UINT8, 2, 2, 2);
    DataAccess* const open = dive.log_.declareBlob("A.open", Units::METER, BLOB_FLOAT32BE);
    DataAccess* const mode = dive.log_.declareText("A.mode");
    DataAccess* const silent = dive.log_.declare("A.silent");
    dive.add(dive.log_.version(8));
    for (DataAccess* const access : {plane, row, cube, open, mode, silent}) dive.declare(access);
    dive.add(dive.log_.blob<unsigned char>(plane, 0, {0, 1, 2, 10, 11, 12}));
    dive.add(dive.log_.blob<unsigned char>(plane, 1, {20, 21, 22, 30, 31, 32}));
    for (const std::vector<short>& cells : {std::vector<short>{1, 2}, {3}, {4, 5, 6}}) {
        dive.add(dive.log_.blob(row, 1, cells));
    }
    dive.add(dive.log_.blob<unsigned char>(cube, 0, {0, 1, 10, 11, 100, 101, 110, 111}));
    dive.add(dive.log_.blob<unsigned>(open, 0, {0x803F, 0x40}));
    dive.add(dive.log_.blob<unsigned>(open, 1, {}));
    dive.add(dive.log_.text(mode, 1, "dive"));
    dive.add(dive.log_.text(mode, 2, "\xC3\xA4"));
    write("dive", dive.bytes());
    run({"-m", "dive", "A.plane", "A.row", "(cm)", "A.cube", "A.open", "A.mode", "A.silent"});
    for (const char* line :
         {"A.plane.value double 2x2x3: 0 20 10 30 1 21 11 31 2 22 12 32\n", "A.mode.value cell 2x1:\n",
          "A.row.value double 3x2: 100 300 400 200 nan 500\n",
          "A.cube.value double 1x2x2x2: 0 100 10 110 1 101 11 111\n", "A.open.value{1} double 2x1: 1 2\n",
          "A.open.value{2} double 0x0:\n", "A.mode.value{1} char 1x4:dive\n", "A.mode.value{2} char 1x1:\\xe4\n",
          "A.silent.value double 0x0:\n", "A.silent.time double 0x0:\n"}) {
        EXPECT_NE(std::string::npos, shown().find(line)) << line << shown();
    }
}

TEST_F(MatlabRunTest, TheSameLogGivesTheSameBytesAlsoBesideNetCdf) {
    synthesize("--minutes 2");
    run({"-m", "-H", "dive"});
    const std::string mat = read("dive.mat");
    const std::string h5 = read("dive.h5");
    run({"-m", "-N", "-H", "-n", "dive"});
    EXPECT_TRUE(mat == read("dive.mat"));
    EXPECT_TRUE(h5 == read("dive.h5"));
    EXPECT_LT(10000u, read("dive.nc4").size());
}

TEST_F(MatlabRunTest, TheExamplesPlot) {
    synthesize("--minutes 2");
    run({"-m", "-H", "dive"});
    EXPECT_EQ("", OutputOf(SCIENCE_PYTHON " " EXAMPLES "/plot_dive_h5.py " + path("dive.h5") + " " + path("h5.png") +
                           " 2>&1"));
    EXPECT_EQ("\x89PNG", read("h5.png").substr(0, 4));
    const std::string said =
        OutputOf("octave-cli " EXAMPLES "/plot_dive.m " + path("dive.mat") + " " + path("mat.png") + " 2>&1");
    EXPECT_EQ("\x89PNG", read("mat.png").substr(0, 4)) << said;
}
