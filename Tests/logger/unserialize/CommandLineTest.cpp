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

}  // namespace

TEST(CommandLineTest, WithoutALetterForAnOutputTheTextIsMade) {
    for (const char* const options : {"-hiLOqy", "-tuxz9-", "-"}) {
        const Parsed parsed({options, "log"});
        EXPECT_TRUE(parsed->writes(TEXT_OUTPUT)) << options;
        EXPECT_STREQ("log", parsed->slateFile_.cStr()) << options;
    }
    EXPECT_FALSE(Parsed({"-c"})->writes(TEXT_OUTPUT));
}

TEST(CommandLineTest, FlagsAndDefaults) {
    const Parsed bare({"-q"});
    EXPECT_TRUE(bare->quiet_ && bare->appendDates_);
    EXPECT_FALSE(bare->hideUnits_ || bare->interpolate_ || bare->localTimeOnly_ || bare->symlink_ ||
                 bare->formattedJson_ || bare->minimalKml_ || bare->outputNameGiven_ || bare->priorityListGiven_);
    EXPECT_STREQ("ORVEK", bare->vehicleName_.cStr());
    EXPECT_EQ(Syslog::ERROR, bare->textSeverity_);
    EXPECT_EQ(Syslog::DEBUG, bare->syslogSeverity_);
    EXPECT_EQ(Syslog::CRITICAL, bare->minimalKmlSeverity_);
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
    const std::pair<const char*, Syslog::Severity> letters[] = {
        {"d", Syslog::DEBUG},     {"info", Syslog::INFO},  {"e", Syslog::ERROR},
        {"m", Syslog::IMPORTANT}, {"c", Syslog::CRITICAL}, {"f", Syslog::FAULT},
        {"x", Syslog::NONE},      {"z", Syslog::NONE},     {"", Syslog::NONE},
    };
    for (const auto& [letter, severity] : letters) {
        const Parsed parsed({"-S", letter});
        EXPECT_EQ(severity, parsed->textSeverity_) << letter;
        EXPECT_EQ(severity, parsed->syslogSeverity_) << letter;
        EXPECT_EQ(severity, parsed->minimalKmlSeverity_) << letter;
    }
    EXPECT_EQ(Syslog::ERROR, Parsed({"log", "-S"})->syslogSeverity_);  // that of the text, for all
    EXPECT_EQ(Syslog::INFO, Parsed({"-S", "i", "log", "-S"})->syslogSeverity_);
}

TEST(CommandLineTest, PriorityWords) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"-P", "a"}, "Courier Express Priority Normal "},
        {{"-P", "Any"}, "Courier Express Priority Normal "},
        {{"-P", "c", "-P", "N"}, "Courier Normal "},
        {{"-PP", "p", "e"}, "Priority Express "},
        {{"-P", "z"}, ""},
        {{"-P", ""}, ""},
    };
    for (const auto& [arguments, expected] : cases) {
        const Parsed parsed(arguments);
        std::string words;
        for (unsigned int i = 0; i < parsed->priorityList_.size(); ++i) {
            words += std::string(parsed->priorityList_.at(i)) + " ";
        }
        EXPECT_EQ(expected, words);
        EXPECT_TRUE(parsed->priorityListGiven_);
    }
}

TEST(CommandLineTest, VariablesWithTheirErrorsAndUnits) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"log", "depth", "0.5", "(m)", "latitude"}, "depth 0.5 m, latitude nan -, 1"},
        {{"log", "x", "0", "y", "1e-300"}, "x nan -, y 0 -, 1"},
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
    for (const auto& [arguments, variables] : cases) {
        EXPECT_EQ(variables, Parsed(arguments).variables()) << ::testing::PrintToString(arguments);
    }
}

// Each is told once; options without a meaning are not.
TEST(CommandLineTest, WordsThatMeanNothing) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"-S", "z"}, "Cannot read the severity \"z\", it stands for x (none)"},
        {{"-SS", "", "Error"},
         "Cannot read the severity \"\", it stands for x (none)Cannot read the severity \"Error\", it stands for x "
         "(none)"},
        {{"-S", "x", "-SSS", "crit", "fault", "info"}, ""},
        {{"-PPP", "z", "N", "z"}, "Cannot read the priority \"z\", it is ignored"},
        {{"-C", "red"}, "Cannot read the colour \"red\", it is written as it stands"},
        {{"-C", "#ff00ff0"}, "Cannot read the colour \"#ff00ff0\", it is written as it stands"},
        {{"-C", "fF00Aa90"}, ""},
        {{"log", "x", "(furlong)", "y", "(furlong)", "z", "(m)"},
         "Cannot read the unit \"furlong\", the log's unit is used"},
        {{"log", "x", "()"}, "Cannot read the unit \"\", the log's unit is used"},
        {{"-se", "2012-06-01T12:30:00", "2012-06-01T12:29:59.75"},
         "The end time 2012-06-01T12:29:59.750Z is before the start time 2012-06-01T12:30:00.000Z, no entry lies "
         "between them"},
        {{"-se", "2012-06-01T12:30:00", "2012-06-01T12:30:00"}, ""},
        {{"-tuxz9-", "log"}, ""},
    };
    for (const auto& [arguments, complaints] : cases) EXPECT_EQ(complaints, Parsed(arguments).complaints());
}

TEST(CommandLineTest, ATimeThatCannotBeReadLeavesItsBoundOpen) {
    const Parsed parsed({"-se", "noon", "2012-06-01T12:30:00", "log"});
    EXPECT_EQ(Timestamp::NOT_SET_TIME, parsed->startTime_);
    EXPECT_EQ(Timestamp(1338553800, 0), parsed->endTime_);
    EXPECT_EQ("Cannot read the start time noon, it is ignored", parsed.complaints());
}
