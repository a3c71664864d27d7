#pragma once

class Logger;
class Str;

// How the writing of one output went. It outlives the writer, for those who name the file when that is closed.
class OutputOutcome {
public:
    // All that the writer had to write is in the file.
    bool isWhole() const { return state_ == WHOLE; }
    bool isIncomplete() const { return state_ == INCOMPLETE; }  // else there is no file: nothing was written

    void begin() { state_ = WHOLE; }  // another file
    // The first failure of the file is one ERROR message: a full disk fails every write that follows.
    void fail(const char* failedTo, const Str& filename, const char* reason, const Logger& logger);
    void fail() { state_ = INCOMPLETE; }  // it is told already
    void removed() { state_ = ABSENT; }   // by the writer: it had nothing to write

private:
    enum State { WHOLE, INCOMPLETE, ABSENT } state_ = WHOLE;
};
