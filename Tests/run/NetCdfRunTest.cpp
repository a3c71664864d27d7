#include "RunFixture.h"
#include "support/NetCdfFile.h"

// The array files of whole logs, as other programs read them.

namespace {

std::string Python(const std::string& arguments) {
    return OutputOf(SCIENCE_PYTHON " -B " + arguments + " 2>&1");
}

typedef RunFixture NetCdfRunTest;

}  // namespace

TEST_F(NetCdfRunTest, EveryValueOfADiveIsInBothFiles) {
    synthesize("--minutes 4");
    runInSilence({"-a", "dive"});
    runInSilence({"-n", "-N", "dive"});
    const std::string differences =
        Python(CHECK_NETCDF " " + path("dive.asc") + " " + path("dive.nc") + " " + path("dive.nc4"));
    EXPECT_LT(100000, atoi(differences.c_str())) << differences;
}

TEST_F(NetCdfRunTest, XarrayDecodesTheTimes) {
    write("dive", DiveLog::Of(3));
    run({"-n", "-N", "dive"});
    EXPECT_EQ("2012-06-01T12:30:01.000000000 0.5\n",
              Python("-c 'import xarray; d = xarray.open_dataset(\"" + path("dive.nc") +
                     "\"); print(d.Time.values[1], d[\"Depth.depth\"].values[1])'"));
    EXPECT_EQ("2012-06-01T12:30:01.250000000 0.5\n",
              Python("-c 'import xarray; d = xarray.open_dataset(\"" + path("dive.nc4") +
                     "\", group=\"Depth\"); print(d[\"Depth.depth_time\"].dt.round(\"ms\").values[1], "
                     "d[\"Depth.depth\"].values[1])'"));
}

// A cycle start after a point of one series forces out what is pending of the others.
TEST_F(NetCdfRunTest, ThinnedSeries) {
    DiveLog dive;
    dive.begin();
    DataAccess* const step = dive.log_.declare("Nav.step");
    dive.declare(step);
    for (int i = 0; i < 8; ++i) {
        dive.cycles(i, 1);
        dive.add(dive.log_.data(step, i + 0.25, i < 4 ? 0 : 5));
    }
    write("dive", dive.bytes());
    run({"-n", "-N", "dive", "Nav.step", "0.01", "Depth.depth", "0.01"});
    const NetCdfFile table(path("dive.nc"));
    const NetCdfFile series(path("dive.nc4"));
    EXPECT_EQ((std::vector<double>{0, 0, 2, 3.5, 3.5}), series.numbers("Depth/Depth.depth"));
    EXPECT_EQ((std::vector<double>{0, 0, 0, 5, 5, 5}), series.numbers("Nav/Nav.step"));
    EXPECT_EQ((std::vector<double>{0, 1.5, 2, 3.5, 3.5}), table.numbers("Depth.depth"));
    EXPECT_EQ((std::vector<double>{0, 0, 5, 5, 5}), table.numbers("Nav.step"));
}

TEST_F(NetCdfRunTest, TheExamplePlots) {
    synthesize("--minutes 2");
    run({"-N", "dive"});
    EXPECT_EQ("", Python(EXAMPLE_PLOT " " + path("dive.nc4") + " " + path("dive.png")));
    EXPECT_EQ("\x89PNG", read("dive.png").substr(0, 4));
}

TEST_F(NetCdfRunTest, NcdumpShowsTheTable) {
    write("dive", DiveLog::Of(2));
    run({"-n", "dive", "Depth.depth", "(foot)"});
    EXPECT_EQ(OutputOf("cat " EXPECTED_TABLE), OutputOf("ncdump " + path("dive.nc")));
}

TEST_F(NetCdfRunTest, NothingToWrite) {
    DiveLog empty;
    empty.begin();
    write("empty", empty.bytes());
    write("dive", DiveLog::Of(2));
    for (const char* option : {"-n", "-N"}) {
        EXPECT_EQ(
            "No netCDF file written\nCould not find variable \"Depth.depth\"\n"
            "Could not find variable \"Nav.speed\"\n",
            run({option, "empty"}));
        EXPECT_EQ("dive empty ", program_.list());
    }
    run({"-n", "dive", "No.such"});
    EXPECT_TRUE(std::isnan(NetCdfFile(path("dive.nc")).numbers("No.such").at(1)));
    EXPECT_EQ(0u, run({"-N", "dive", "No.such"}).find("Not found: 16383 No.such\n"));
    EXPECT_TRUE(NetCdfFile(path("dive.nc4")).isOpen());
}
