#include <gtest/gtest.h>

#include "Program.h"

static const char* const USAGE =
    R"usage(unserialize version 8, can handle slate versions 3 to 8
Usage: unserialize [options] [slatefile[(\n|;)slatefile]...] [outputName [approxError] [(unit)]]...
    option -a Slate output written to "[slateFile].asc"
    option -b Binary output written to "[slateFile].bin"
    option -c CSV table output written to "[slateFile].csv"
    option -C kml color: followed by 4 hex bytes indicating alpha, blue, green, and red
    option -d Directory output written to "[slateFile].dir"
    option -e Output until the end time that follows YYYY-MM-DDTHH:MM:SS.SS
    option -h Hide units in text outputs
    option -H HDF5 output written to "[slateFile].h5"
    option -i Interpolate tabular outputs (CSV, TSV, NetCDF)
    option -j (for small logs only) JSON output written to "[slateFile].js"
    option -J (for small logs only) formatted JSON written to "[slateFile].js"
    option -k KML+KMZ output written to "[slateFile].km(lz)"
    option -K KML output (2D, minimal syslog, no timestamps) written to "[slateFile].kml"
    option -l Syslog output written to "[slateFile].log"
    option -L Use local time only -- no GPS correction
    option -m Matlab output written to "[slateFile].mat"
    option -n NetCDF v3 single table output written to "[slateFile].nc"
    option -N NetCDF v4 output written to "[slateFile].nc4
    option -o Output to the filename that follows ("stdout" is ok)
    option -O Output filename should not have dates appended
    option* -p Output from universals and variables with the parent component that follows
    option* -P Priority alias for "[slateFile]" (A[ny], C[ourier], E[xpress], P[riority], or N[ormal])
    option -q Quiet output -- suppress informational messages    option -r Output while the MissionComponent that follows is running.
    option -s Output from the start time that follows YYYY-MM-DDTHH:MM:SS.SS
    option -S Syslog severities: x=none,d>=debug,i>=info,e>=err,m>=imp,f>=fault,c=crit
    option -u Units in separate columns in CSV or TSV outputs
    option -v specify vehicle name for KML/KMZ output
    option -y Link file with dates to symlink without dates
    No option: Slate & Syslog outputs generated
    For either -c or -t, must specify slate file and outputNames
    * option may be repeated
)usage";

TEST(UsageTest, NoArgumentsShowHowToUseTheProgram) {
    Program program;
    const Outcome outcome = program.run({});
    EXPECT_EQ(255, outcome.status_);
    EXPECT_EQ("", outcome.err_);
    EXPECT_EQ(USAGE, outcome.out_);
}

TEST(UsageTest, SeveralInputsWithoutAnOutputNameTouchNothing) {
    Program program;
    program.files().write("a.asc", "kept");
    for (const char* const inputs : {"a;b", "a\nb"}) {
        const Outcome outcome = program.run({"-a", inputs});
        EXPECT_EQ(254, outcome.status_);
        EXPECT_EQ("Must specify output name with multiple input files.\n", outcome.err_);
        EXPECT_EQ("", outcome.out_);
    }
    EXPECT_EQ("a.asc ", program.list());
    EXPECT_EQ("kept", program.files().read("a.asc"));
}
