#include <cstdlib>

#include "RunFixture.h"

// The JSON of whole logs, as other programs read it.

class JsonRunTest : public RunFixture {
protected:
    std::string jq(const std::string& filter, const std::string& file) const {
        return OutputOf("jq -c '" + filter + "' " + path(file) + " 2>&1");
    }
};

TEST_F(JsonRunTest, EverySampleOfADiveIsInTheDocument) {
    synthesize("--minutes 1");
    runInSilence({"-j", "dive"});
    runInSilence({"-J", "-o", "lines.js", "dive"});
    for (const char* file : {"dive.js", "lines.js"}) {
        EXPECT_EQ("", OutputOf("python3 -m json.tool " + path(file) + " 2>&1 >/dev/null")) << file;
    }
    EXPECT_EQ(jq(".", "dive.js"), jq(".", "lines.js"));
    EXPECT_EQ(1u, CountOf(read("dive.js"), "\n"));
    EXPECT_LT(1000u, CountOf(read("lines.js"), "\n"));

    run({"-a", "dive"});
    const std::string text = read("dive.asc");
    const std::string ofDepth = jq(".DepthSensor.depth.time | length", "dive.js");
    EXPECT_LT(100, atoi(ofDepth.c_str()));
    EXPECT_EQ(CountOf(text, ">DepthSensor.depth="), strtoul(ofDepth.c_str(), nullptr, 10));
    EXPECT_EQ("true\n",
              jq("[.. | objects | select(.units?) | (.value | length) == (.time | length)] | all", "dive.js"));
}

TEST_F(JsonRunTest, NamesUnitsAndErrorsLimitTheDocument) {
    write("dive", DiveLog::Of(20));
    run({"-j", "dive", "Depth.depth", "(centimeter)"});
    EXPECT_EQ("[0,50,100]\n", jq(".Depth.depth.value[:3]", "dive.js"));
    EXPECT_EQ("[1338553800250,1338553801250]\n", jq(".Depth.depth.time[:2]", "dive.js"));
    EXPECT_EQ("[\"Depth\"]\n", jq("keys", "dive.js"));
    run({"-j", "dive", "Nav.speed", "0.01", "Depth.depth", "0.01"});
    EXPECT_EQ("[0,9.5]\n", jq(".Depth.depth.value", "dive.js")) << "a straight line is its ends";
    EXPECT_EQ("[1.5,1.5]\n", jq(".Nav.speed.value", "dive.js"));
}

// Each input has a directory of its own, with other codes. Settings are those of the first. What the second says of its
// version at its very end does not hold for the first, whose side file says nothing of it.
TEST_F(JsonRunTest, SeveralInputsMakeOneDocument) {
    for (const std::string input : {"a", "b"}) {
        DiveLog dive;
        DataAccess* const own[] = {dive.log_.declare((input + ".own").c_str()),
                                   dive.log_.declareSetting((input + ".gain").c_str())};
        if (input == "b") dive.begin();
        for (DataAccess* const access : own) dive.declare(access);
        if (input == "a") {
            write("a.dir", dive.bytes());
            dive.begin();
        }
        for (DataAccess* const access : own) dive.add(dive.log_.data(access, 0, input[0]));
        dive.cycles(0, 2);
        if (input == "b") dive.add(dive.log_.version(3));
        write(input, dive.bytes());
    }
    runInSilence({"-j", "-o", "out", "a;b"});
    EXPECT_EQ(R"({"a":{"own":[97],"gain":[97]},"b":{"own":[98]},"Nav":{"speed":[1.5,1.5,1.5,1.5]},)"
              R"("Depth":{"depth":[0,0.5,0,0.5]}})"
              "\n",
              jq("map_values(map_values(.value))", "out"));
}

TEST_F(JsonRunTest, WithoutAnyOfTheNamesThereIsNoDocument) {
    write("dive", DiveLog::Of(3));
    const std::string said = run({"-j", "dive", "Nav.course"});
    EXPECT_EQ(0u, said.find("No Json file written\nCould not find variable \"Nav.course\"\n"
                            "Never ran writer for variable \"Nav.course\"\n"));
    EXPECT_EQ("(ERROR): No variable \"Nav.course\" is in the logs\n", MessagesIn(said));
    EXPECT_EQ("", read("dive.js"));
}
