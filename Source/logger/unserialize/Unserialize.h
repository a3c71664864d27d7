#pragma once

#include "data/Log.h"
#include "io/FileOutStream.h"
#include "logger/engine/LogEngine.h"
#include "logger/engine/LogQueue.h"
#include "logger/unserialize/Directories.h"
#include "logger/unserialize/Inputs.h"
#include "logger/unserialize/OutputAssembly.h"
#include "logger/unserialize/RunSettings.h"
#include "logger/unserialize/UnknownWords.h"
#include "logger/unserialize/VariableList.h"

class Progress;

// One conversion: every entry of every input goes to the outputs that the command line asks for.
class Unserialize {
public:
    // The exit status of the program: 0 after a run, whatever failed in it; 1 when the memory did not suffice to read
    // the inputs to their end; the statuses of CommandLine otherwise.
    static int Run(int argc, char** argv);

private:
    explicit Unserialize(RunSettings& settings);

    static const int MEMORY_USED_UP = 1;

    int convert();
    void reportComplaints();
    void listVariables();
    void readInputs();
    void readInput(const Str& input, Progress& progress);
    void checkDirectory(const Str& input);
    void readEntries(const Str& input, Progress& progress);
    bool regainMemory();
    void reportNoEntry(const Str& input, const Str& reason);
    void nameOutputs();
    bool writesInVain() const;
    void sayDone() const;
    void showMessages() { consoleEngine_.processQueue(Timespan::ZERO_TIMESPAN); }

    RunSettings& settings_;  // borrowed
    Log log_;                // of one input after the other; outlives the entries that writers hold
    const Log::Use use_{log_};
    FileOutStream console_;    // standard output
    LogEngine consoleEngine_;  // shows the program's own messages
    const Logger logger_;
    LogQueue queue_;
    LogEngine engine_;  // feeds the outputs
    Inputs inputs_;
    UnknownWords unknownWords_;
    Directories directories_;
    VariableList variableList_;  // owns the names of an automatic list
    OutputAssembly outputs_;
    Timespan timeCorrection_;                        // GPS against vehicle clock, carried from input to input
    Timestamp firstTime_ = Timestamp::NOT_SET_TIME;  // of the entries that were passed on
    Timestamp lastTime_ = Timestamp::NOT_SET_TIME;
    long long bytesBefore_ = 0;  // of the inputs that are done
    bool isMemoryUsedUp_ = false;
};
