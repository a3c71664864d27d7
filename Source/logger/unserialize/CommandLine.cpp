#include "logger/unserialize/CommandLine.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "data/LogVersion.h"
#include "units/UnitRegistry.h"

const char* const CommandLine::DEFAULT_SLATE_FILE = "Logs/latest/slate";

namespace {

template <OutputKind KIND>
void Write(RunSettings& settings, char*) {
    settings.outputs_.set(KIND);
}

template <bool RunSettings::*FLAG>
void SetFlag(RunSettings& settings, char*) {
    settings.*FLAG = true;
}

void WriteFormattedJson(RunSettings& settings, char*) {
    settings.outputs_.set(JSON_OUTPUT);
    settings.formattedJson_ = true;
}

void WriteMinimalKml(RunSettings& settings, char*) {
    settings.outputs_.set(KML_OUTPUT);
    settings.minimalKml_ = true;
}

// A value that cannot be read, and what becomes of it.
void Complain(RunSettings& settings, const char* what, const char* value, const char* effect) {
    settings.complain(Str("Cannot read the ") + what + " \"" + value + "\", " + effect);
}

bool IsColor(const char* text) {
    return strlen(text) == 8 && text[strspn(text, "0123456789abcdefABCDEF")] == '\0';
}

void SetColor(RunSettings& settings, char* value) {
    settings.kmlColor_ = value;
    if (!IsColor(value)) Complain(settings, "colour", value, "it is written as it stands");
}

Timestamp ReadTime(RunSettings& settings, const char* which, const char* value) {
    const Timestamp time(value);
    if (!time.isSet()) {
        settings.complain(Str("Cannot read the ") + which + " time " + value + ", it is ignored");
    }
    return time;
}

void SetStartTime(RunSettings& settings, char* value) {
    settings.startTime_ = ReadTime(settings, "start", value);
}

void SetEndTime(RunSettings& settings, char* value) {
    settings.endTime_ = ReadTime(settings, "end", value);
}

void SetOutputName(RunSettings& settings, char* value) {
    settings.outputNameGiven_ = true;
    settings.outputName_ = value;
    if (strcmp(value, "stdout") == 0) settings.toStandardOutput_ = true;
}

void DropDates(RunSettings& settings, char*) {
    settings.appendDates_ = false;
}

void AddParent(RunSettings& settings, char* value) {
    settings.parents_.push(value);
}

void AddPriorities(RunSettings& settings, char* value) {
    static const char* const WORDS[] = {"Courier", "Express", "Priority", "Normal"};  // each named by its first letter
    const int letter = tolower(static_cast<unsigned char>(value[0]));
    const unsigned int countBefore = settings.priorityList_.size();
    for (const char* const word : WORDS) {
        if (letter == 'a' || letter == tolower(word[0])) settings.priorityList_.push(word);
    }
    if (settings.priorityList_.size() == countBefore) Complain(settings, "priority", value, "it is ignored");
    settings.priorityListGiven_ = true;
}

void SetMission(RunSettings& settings, char* value) {
    settings.missionName_ = value;
}

void SetVehicle(RunSettings& settings, char* value) {
    settings.vehicleName_ = value;
}

Syslog::Severity SeverityOfLetter(char letter) {
    switch (letter) {
        case 'd':
            return Syslog::DEBUG;
        case 'i':
            return Syslog::INFO;
        case 'e':
            return Syslog::ERROR;
        case 'm':
            return Syslog::IMPORTANT;
        case 'c':
            return Syslog::CRITICAL;
        case 'f':
            return Syslog::FAULT;
        default:
            return Syslog::NONE;
    }
}

void SpreadTextSeverity(RunSettings& settings) {
    settings.syslogSeverity_ = settings.textSeverity_;
    settings.minimalKmlSeverity_ = settings.textSeverity_;
}

void SetSeverities(RunSettings& settings, char* value) {
    settings.textSeverity_ = SeverityOfLetter(value[0]);
    if (settings.textSeverity_ == Syslog::NONE && value[0] != 'x') {
        Complain(settings, "severity", value, "it stands for x (none)");
    }
    SpreadTextSeverity(settings);
}

struct Option {
    char letter_;
    enum Value { ALONE, TAKES_VALUE, REPEATABLE } value_;  // REPEATABLE takes a value too
    void (*apply_)(RunSettings& settings, char* value);    // null: listed in the usage but without effect
    const char* usage_;                                    // the line after the letter, with its line end
};

// In the order of the usage text. -q has no line end, and the text of -N no closing quotation mark: scripts match them.
const Option OPTIONS[] = {
    {'a', Option::ALONE, Write<TEXT_OUTPUT>, "Slate output written to \"[slateFile].asc\"\n"},
    {'b', Option::ALONE, Write<BINARY_OUTPUT>, "Binary output written to \"[slateFile].bin\"\n"},
    {'c', Option::ALONE, Write<CSV_OUTPUT>, "CSV table output written to \"[slateFile].csv\"\n"},
    {'C', Option::TAKES_VALUE, SetColor, "kml color: followed by 4 hex bytes indicating alpha, blue, green, and red\n"},
    {'d', Option::ALONE, Write<DIRECTORY_OUTPUT>, "Directory output written to \"[slateFile].dir\"\n"},
    {'e', Option::TAKES_VALUE, SetEndTime, "Output until the end time that follows YYYY-MM-DDTHH:MM:SS.SS\n"},
    {'h', Option::ALONE, SetFlag<&RunSettings::hideUnits_>, "Hide units in text outputs\n"},
    {'H', Option::ALONE, Write<HDF5_OUTPUT>, "HDF5 output written to \"[slateFile].h5\"\n"},
    {'i', Option::ALONE, SetFlag<&RunSettings::interpolate_>, "Interpolate tabular outputs (CSV, TSV, NetCDF)\n"},
    {'j', Option::ALONE, Write<JSON_OUTPUT>, "(for small logs only) JSON output written to \"[slateFile].js\"\n"},
    {'J', Option::ALONE, WriteFormattedJson, "(for small logs only) formatted JSON written to \"[slateFile].js\"\n"},
    {'k', Option::ALONE, Write<KML_OUTPUT>, "KML+KMZ output written to \"[slateFile].km(lz)\"\n"},
    {'K', Option::ALONE, WriteMinimalKml,
     "KML output (2D, minimal syslog, no timestamps) written to \"[slateFile].kml\"\n"},
    {'l', Option::ALONE, Write<SYSLOG_OUTPUT>, "Syslog output written to \"[slateFile].log\"\n"},
    {'L', Option::ALONE, SetFlag<&RunSettings::localTimeOnly_>, "Use local time only -- no GPS correction\n"},
    {'m', Option::ALONE, Write<MATLAB_OUTPUT>, "Matlab output written to \"[slateFile].mat\"\n"},
    {'n', Option::ALONE, Write<NETCDF_TABLE_OUTPUT>, "NetCDF v3 single table output written to \"[slateFile].nc\"\n"},
    {'N', Option::ALONE, Write<NETCDF_OUTPUT>, "NetCDF v4 output written to \"[slateFile].nc4\n"},
    {'o', Option::TAKES_VALUE, SetOutputName, "Output to the filename that follows (\"stdout\" is ok)\n"},
    {'O', Option::ALONE, DropDates, "Output filename should not have dates appended\n"},
    {'p', Option::REPEATABLE, AddParent,
     "Output from universals and variables with the parent component that follows\n"},
    {'P', Option::REPEATABLE, AddPriorities,
     "Priority alias for \"[slateFile]\" (A[ny], C[ourier], E[xpress], P[riority], or N[ormal])\n"},
    {'q', Option::ALONE, SetFlag<&RunSettings::quiet_>, "Quiet output -- suppress informational messages"},
    {'r', Option::TAKES_VALUE, SetMission, "Output while the MissionComponent that follows is running.\n"},
    {'s', Option::TAKES_VALUE, SetStartTime, "Output from the start time that follows YYYY-MM-DDTHH:MM:SS.SS\n"},
    {'S', Option::TAKES_VALUE, SetSeverities,
     "Syslog severities: x=none,d>=debug,i>=info,e>=err,m>=imp,f>=fault,c=crit\n"},
    {'u', Option::ALONE, nullptr, "Units in separate columns in CSV or TSV outputs\n"},
    {'v', Option::TAKES_VALUE, SetVehicle, "specify vehicle name for KML/KMZ output\n"},
    {'y', Option::ALONE, SetFlag<&RunSettings::symlink_>, "Link file with dates to symlink without dates\n"},
};

const char* const USAGE_HEAD =
    "Usage: unserialize [options] [slatefile[(\\n|;)slatefile]...] [outputName [approxError] [(unit)]]...\n";
const char* const USAGE_TAIL =
    "    No option: Slate & Syslog outputs generated\n"
    "    For either -c or -t, must specify slate file and outputNames\n"
    "    * option may be repeated\n";

const Option* FindOption(char letter) {
    for (const Option& option : OPTIONS) {
        if (option.letter_ == letter) return option.apply_ == nullptr ? nullptr : &option;
    }
    return nullptr;
}

// The last argument is an option that misses its value.
void ApplyWithoutValue(const Option& option, RunSettings& settings) {
    if (option.letter_ == 'o') settings.outputNameGiven_ = true;
    if (option.letter_ == 'S') SpreadTextSeverity(settings);
}

bool StartsWithLetter(const char* argument) {
    return isalpha(static_cast<unsigned char>(argument[0])) != 0;
}

// The text between "(" and the first ")" or, without one, the end; cut in place.
char* UnitIn(char* argument) {
    char* const unit = argument + 1;
    unit[strcspn(unit, ")")] = '\0';
    return unit;
}

// An approximation error that says something, or NaN.
float ErrorIn(const char* argument) {
    const double error = strtod(argument, nullptr);
    return std::isfinite(error) && error != 0 ? static_cast<float>(error) : NAN;
}

void ApplyFollower(char* follower, RunSettings& settings) {
    OutputVariables& variables = settings.variables_;
    RequestedVariable& current = variables.requested_.last();
    if (follower[0] == '(') {
        current.unit_ = UnitIn(follower);
        if (UnitRegistry::FindUnit(current.unit_) != nullptr) return;
        Complain(settings, "unit", current.unit_, "the log's unit is used");
    } else {
        current.error_ = ErrorIn(follower);
        if (!std::isnan(current.error_)) ++variables.errorCount_;
    }
}

}  // namespace

CommandLine::CommandLine(int argc, char** argv)
    : argc_(argc), argv_(argv), roles_(new Role[static_cast<size_t>(argc > 0 ? argc : 1)]) {
    roles_[0] = PROGRAM;
}

CommandLine::Result CommandLine::parse(RunSettings& settings) {
    if (argc_ <= 1) {
        ShowUsage();
        return USAGE_SHOWN;
    }
    markRoles(settings);
    const bool severalInputs =
        settings.slateFile_.find(';') != Str::NO_POS || settings.slateFile_.find('\n') != Str::NO_POS;
    if (severalInputs && settings.outputName_.isEmpty()) {
        fputs("Must specify output name with multiple input files.\n", stderr);
        return OUTPUT_NAME_MISSING;
    }
    listVariables(settings);
    CheckWindow(settings);
    ChooseDefaultOutput(settings);
    if (!slateFileGiven_) settings.slateFile_ = DEFAULT_SLATE_FILE;
    return RUN;
}

void CommandLine::ShowUsage() {
    printf("unserialize version %d, can handle slate versions %d to %d\n", LogVersion::NEWEST, LogVersion::OLDEST,
           LogVersion::NEWEST);
    fputs(USAGE_HEAD, stdout);
    for (const Option& option : OPTIONS) {
        printf("    option%s -%c %s", option.value_ == Option::REPEATABLE ? "*" : "", option.letter_, option.usage_);
    }
    fputs(USAGE_TAIL, stdout);
}

// Applies the options and finds out what every argument is.
void CommandLine::markRoles(RunSettings& settings) {
    for (int i = 1; i < argc_; ++i) {
        if (argv_[i][0] == '-') {
            i = applyGroup(i, settings);
        } else {
            roles_[i] = positionalRole(argv_[i], settings);
        }
    }
}

// Each letter that needs a value takes the next argument; the result is the index of the last one taken.
int CommandLine::applyGroup(int index, RunSettings& settings) {
    const char* const letters = argv_[index] + 1;
    roles_[index] = OPTION_GROUP;
    for (const char* letter = letters; *letter != '\0'; ++letter) {
        const Option* const option = FindOption(*letter);
        if (option == nullptr) continue;
        if (option->value_ == Option::ALONE) {
            option->apply_(settings, nullptr);
        } else if (index + 1 < argc_) {
            roles_[++index] = OPTION_VALUE;
            option->apply_(settings, argv_[index]);
        } else {
            ApplyWithoutValue(*option, settings);
        }
    }
    return index;
}

CommandLine::Role CommandLine::positionalRole(char* argument, RunSettings& settings) {
    if (!slateFileGiven_) {
        slateFileGiven_ = true;
        settings.slateFile_ = argument;
        return SLATE_FILE;
    }
    return StartsWithLetter(argument) ? NAME : FOLLOWER;
}

// Every argument after a name that is no name itself, option groups and numeric option values included, says something
// about that name. An argument equal to a file name never does.
void CommandLine::listVariables(RunSettings& settings) {
    RequestedVariables& requested = settings.variables_.requested_;
    for (int i = 1; i < argc_; ++i) {
        char* const argument = argv_[i];
        if (settings.slateFile_ == argument || settings.outputName_ == argument) continue;
        if (roles_[i] == NAME) {
            requested.add({argument});
        } else if (requested.count() > 0 && !StartsWithLetter(argument)) {
            ApplyFollower(argument, settings);
        }
    }
}

void CommandLine::CheckWindow(RunSettings& settings) {
    if (!settings.isWindowReversed()) return;
    settings.complain("The end time " + settings.endTime_.toString(3) + " is before the start time " +
                      settings.startTime_.toString(3) + ", no entry lies between them");
}

void CommandLine::ChooseDefaultOutput(RunSettings& settings) {
    if (settings.outputs_.none()) settings.outputs_.set(TEXT_OUTPUT);
}
