#include "logger/unserialize/CommandLine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace {

// A command line, its program name left out, and what became of it.
class Parsed {
public:
    explicit Parsed(std::vector<std::string> arguments) : arguments_(std::move(arguments)) {
        arguments_.insert(arguments_.begin(), "unserialize");
        for (std::string& argument : arguments_) argv_.push_back(argument.data());
        argv_.push_back(nullptr);
        result_ = CommandLine(static_cast<int>(arguments_.size()), argv_.data()).parse(settings_);
    }
    const RunSettings* operator->() const { return &settings_; }

    // "name error unit" for each variable, and the number of errors.
    std::string variables() const {
        const OutputVariables& variables = settings_.variables_;
        std::ostringstream text;
        for (int i = 0; i < variables.count_; ++i) {
            const char* const unit = variables.units_[i];
            text << variables.names_[i] << " " << variables.errors_[i] << " " << (unit == nullptr ? "-" : unit) << ", ";
        }
        text << variables.errorCount_;
        return text.str();
    }
    std::string complaints() const {
        std::string all;
        for (unsigned int i = 0; i < settings_.complaints_.size(); ++i) all += settings_.complaints_.at(i)->cStr();
        return all;
    }

    CommandLine::Result result_;

private:
    std::vector<std::string> arguments_;
    std::vector<char*> argv_;
    RunSettings settings_;
};

OutputKinds Kinds(std::initializer_list<OutputKind> kinds) {
    OutputKinds all;
    for (const OutputKind kind : kinds) all.set(kind);
    return all;
}

}  // namespace

TEST(CommandLineTest, EveryOutputHasItsLetter) {
    const struct {
        const char* options_;
        OutputKinds outputs_;
    } cases[] = {
        {"-a", Kinds({TEXT_OUTPUT})},      {"-b", Kinds({BINARY_OUTPUT})},
        {"-c", Kinds({CSV_OUTPUT})},       {"-d", Kinds({DIRECTORY_OUTPUT})},
        {"-H", Kinds({HDF5_OUTPUT})},      {"-j", Kinds({JSON_OUTPUT})},
        {"-J", Kinds({JSON_OUTPUT})},      {"-k", Kinds({KML_OUTPUT})},
        {"-K", Kinds({KML_OUTPUT})},       {"-l", Kinds({SYSLOG_OUTPUT})},
        {"-m", Kinds({MATLAB_OUTPUT})},    {"-n", Kinds({NETCDF_TABLE_OUTPUT})},
        {"-N", Kinds({NETCDF_OUTPUT})},    {"-acl", Kinds({TEXT_OUTPUT, CSV_OUTPUT, SYSLOG_OUTPUT})},
        {"-hiLOqy", Kinds({TEXT_OUTPUT})},  // none of these asks for an output: the text is made
        {"-tuxz9-", Kinds({TEXT_OUTPUT})},  // unknown, or without effect
        {"-", Kinds({TEXT_OUTPUT})},
    };
    for (const auto& c : cases) {
        const Parsed parsed({c.options_, "log"});
        EXPECT_EQ(CommandLine::RUN, parsed.result_) << c.options_;
        EXPECT_EQ(c.outputs_, parsed->outputs_) << c.options_;
        EXPECT_EQ(c.outputs_ == Kinds({DIRECTORY_OUTPUT}), parsed->isDirectoryOnly()) << c.options_;
        EXPECT_STREQ("log", parsed->slateFile_.cStr()) << c.options_;
    }
}

TEST(CommandLineTest, OnlyTablesNeedTheVariableList) {
    for (const char* const option : {"-c", "-H", "-j", "-J", "-m", "-n", "-N", "-ac"}) {
        EXPECT_TRUE(Parsed({option})->hasTableOutput()) << option;
    }
    for (const char* const option : {"-a", "-b", "-d", "-k", "-K", "-l"}) {
        EXPECT_FALSE(Parsed({option})->hasTableOutput()) << option;
    }
}

TEST(CommandLineTest, FlagsAndDefaults) {
    const Parsed bare({"-q"});
    EXPECT_STREQ("Logs/latest/slate", bare->slateFile_.cStr());
    EXPECT_STREQ("ORVEK", bare->vehicleName_.cStr());
    EXPECT_TRUE(bare->quiet_ && bare->appendDates_);
    EXPECT_FALSE(bare->hideUnits_ || bare->interpolate_ || bare->localTimeOnly_ || bare->symlink_ ||
                 bare->formattedJson_ || bare->minimalKml_ || bare->outputNameGiven_ || bare->priorityListGiven_);
    const Parsed all({"-hiLOyJK"});
    EXPECT_TRUE(all->hideUnits_ && all->interpolate_ && all->localTimeOnly_ && all->symlink_ && all->formattedJson_ &&
                all->minimalKml_);
    EXPECT_FALSE(all->quiet_ || all->appendDates_);
}

TEST(CommandLineTest, LettersTakeTheirValuesInTurn) {
    const Parsed parsed({"-soC", "2012-06-01T12:30:00", "out.asc", "ff00ff00", "-pp", "Nav", "Depth", "log", "-vr",
                         "Whale", "Dive", "-e", "2012-06-01T13:00:00"});
    EXPECT_EQ(Timestamp(1338553800, 0), parsed->startTime_);
    EXPECT_EQ(Timestamp(1338555600, 0), parsed->endTime_);
    EXPECT_STREQ("out.asc", parsed->outputName_.cStr());
    EXPECT_STREQ("out.asc", parsed->outputFilename(".bin").cStr());
    EXPECT_STREQ("ff00ff00", parsed->kmlColor_);
    ASSERT_EQ(2u, parsed->parents_.size());
    EXPECT_STREQ("Nav", parsed->parents_.at(0));
    EXPECT_STREQ("Depth", parsed->parents_.at(1));
    EXPECT_STREQ("Whale", parsed->vehicleName_.cStr());
    EXPECT_STREQ("Dive", parsed->missionName_.cStr());
    EXPECT_STREQ("log", parsed->slateFile_.cStr());
    EXPECT_FALSE(parsed->toStandardOutput_);
    EXPECT_TRUE(Parsed({"-o", "stdout"})->toStandardOutput_);
}

TEST(CommandLineTest, AValueThatIsMissingAtTheEnd) {
    for (const char* const option : {"-C", "-e", "-p", "-P", "-r", "-s", "-v"}) {
        const Parsed parsed({"log", option});
        EXPECT_EQ(CommandLine::RUN, parsed.result_) << option;
        EXPECT_FALSE(parsed->outputNameGiven_ || parsed->priorityListGiven_) << option;
        EXPECT_EQ("", parsed.complaints()) << option;
    }
    const Parsed unnamed({"log", "-o"});
    EXPECT_TRUE(unnamed->outputNameGiven_);
    EXPECT_STREQ("", unnamed->outputFilename(".asc").cStr());
}

TEST(CommandLineTest, Severities) {
    const struct {
        std::vector<std::string> arguments_;
        int text_, syslog_, minimalKml_;
    } cases[] = {
        {{"log"}, Syslog::ERROR, Syslog::DEBUG, Syslog::CRITICAL},
        {{"-S", "d"}, Syslog::DEBUG, Syslog::DEBUG, Syslog::DEBUG},
        {{"-S", "info"}, Syslog::INFO, Syslog::INFO, Syslog::INFO},
        {{"-S", "e"}, Syslog::ERROR, Syslog::ERROR, Syslog::ERROR},
        {{"-S", "m"}, Syslog::IMPORTANT, Syslog::IMPORTANT, Syslog::IMPORTANT},
        {{"-S", "c"}, Syslog::CRITICAL, Syslog::CRITICAL, Syslog::CRITICAL},
        {{"-S", "f"}, Syslog::FAULT, Syslog::FAULT, Syslog::FAULT},
        {{"-S", "x"}, Syslog::NONE, Syslog::NONE, Syslog::NONE},
        {{"-S", "z"}, Syslog::NONE, Syslog::NONE, Syslog::NONE},
        {{"-S", ""}, Syslog::NONE, Syslog::NONE, Syslog::NONE},
        {{"log", "-S"}, Syslog::ERROR, Syslog::ERROR, Syslog::ERROR},
        {{"-S", "i", "log", "-S"}, Syslog::INFO, Syslog::INFO, Syslog::INFO},
    };
    for (const auto& c : cases) {
        const Parsed parsed(c.arguments_);
        const std::string line = ::testing::PrintToString(c.arguments_);
        EXPECT_EQ(c.text_, parsed->textSeverity_) << line;
        EXPECT_EQ(c.syslog_, parsed->syslogSeverity_) << line;
        EXPECT_EQ(c.minimalKml_, parsed->minimalKmlSeverity_) << line;
    }
}

TEST(CommandLineTest, PriorityWords) {
    const struct {
        std::vector<std::string> arguments_;
        const char* words_;
    } cases[] = {
        {{"-P", "a"}, "Courier Express Priority Normal "},
        {{"-P", "Any"}, "Courier Express Priority Normal "},
        {{"-P", "c", "-P", "N"}, "Courier Normal "},
        {{"-PP", "p", "e"}, "Priority Express "},
        {{"-P", "z"}, ""},
        {{"-P", ""}, ""},
    };
    for (const auto& c : cases) {
        const Parsed parsed(c.arguments_);
        std::string words;
        for (unsigned int i = 0; i < parsed->priorityList_.size(); ++i) {
            words += std::string(parsed->priorityList_.at(i)) + " ";
        }
        EXPECT_EQ(c.words_, words);
        EXPECT_TRUE(parsed->priorityListGiven_);
    }
}

TEST(CommandLineTest, VariablesWithTheirErrorsAndUnits) {
    const struct {
        std::vector<std::string> arguments_;
        const char* variables_;
    } cases[] = {
        {{"log", "depth", "0.5", "(m)", "latitude"}, "depth 0.5 m, latitude nan -, 1"},
        {{"log", "x", "0", "y"}, "x nan -, y nan -, 0"},
        {{"log", "x", "(m"}, "x nan m, 0"},
        {{"log", "x", "(m) per s)", "()"}, "x nan , 0"},
        {{"log", "x", "(m)(s)"}, "x nan m, 0"},
        {{"log", "0.5", "(m)", "x"}, "x nan -, 0"},  // nothing to say it about
        {{"log", "x", "0.5", "0.25"}, "x 0.25 -, 2"},
        {{"log", "x", "-0.5"}, "x -0.5 -, 1"},  // an option group too, of letters without effect
        {{"log", "Nano.x", "Info.y"}, "Nano.x nan -, Info.y nan -, 0"},
        {{"log", "x", "+inf", "y", "1e400", "z", ".nan"}, "x nan -, y nan -, z nan -, 0"},
        {{"log", "x", "0.5", "-a"}, "x nan -, 1"},  // options come first
        {{"-o", "depth", "log", "depth"}, "0"},     // the name of a file is no variable
        {{"log", "log", "x", "log"}, "x nan -, 0"},
        {{"log", "x", "-s", "2012-06-01T12:30:00"}, "x 2012 -, 1"},
        {{"-v", "Whale", "-p", "Nav", "log", "depth"}, "depth nan -, 0"},
        {{"log", "depth", "-r", "Dive", "x"}, "depth nan -, x nan -, 0"},
        {{"log", "-r", "0.5", "depth"}, "depth nan -, 0"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.variables_, Parsed(c.arguments_).variables()) << ::testing::PrintToString(c.arguments_);
    }
}

TEST(CommandLineTest, SeveralInputsNeedAnOutputName) {
    const struct {
        std::vector<std::string> arguments_;
        CommandLine::Result result_;
    } cases[] = {
        {{"a;b"}, CommandLine::OUTPUT_NAME_MISSING},       {{"a\nb"}, CommandLine::OUTPUT_NAME_MISSING},
        {{"a;b", "-o"}, CommandLine::OUTPUT_NAME_MISSING}, {{"a;b", "-o", ""}, CommandLine::OUTPUT_NAME_MISSING},
        {{"a;b", "-o", "out"}, CommandLine::RUN},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.result_, Parsed(c.arguments_).result_) << ::testing::PrintToString(c.arguments_);
    }
}

TEST(CommandLineTest, ATimeThatCannotBeReadLeavesItsBoundOpen) {
    const Parsed parsed({"-se", "noon", "2012-06-01T12:30:00", "log"});
    EXPECT_EQ(Timestamp::NOT_SET_TIME, parsed->startTime_);
    EXPECT_EQ(Timestamp(1338553800, 0), parsed->endTime_);
    EXPECT_EQ("Cannot read the start time noon, it is ignored", parsed.complaints());
}

TEST(CommandLineTest, NoArgumentsShowTheUsage) {
    RunSettings settings;
    for (const int argc : {0, 1}) {
        char* argv[] = {nullptr};
        ::testing::internal::CaptureStdout();
        EXPECT_EQ(CommandLine::USAGE_SHOWN, CommandLine(argc, argv).parse(settings));
        EXPECT_NE("", ::testing::internal::GetCapturedStdout());
    }
}
