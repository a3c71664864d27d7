#pragma once

#include "data/CodedItems.h"
#include "utils/Str.h"

class Log;

// Reports, while a log is read, what it says of its codes otherwise than what is registered under them: of each code
// once, of the first MAX_SHOWN codes one by one, of the others how many they were.
class Contradictions {
public:
    static constexpr unsigned int MAX_SHOWN = 30;

    explicit Contradictions(const Log& log) : log_(log) {}  // borrowed
    Contradictions(const Contradictions&) = delete;
    Contradictions& operator=(const Contradictions&) = delete;

    // A log is read from here on; the name is for the messages.
    void begin(const Str& logName);
    void end();  // outside of a log nothing is reported
    template <typename T>
    // Looks at what the log has just said of the code: an ERROR if that is otherwise and has not been reported. Unless
    // a log is read and somebody hears, nothing is done.
    void report(CodedItems<T>& items, unsigned short code);

    // The first of a kind, as a text; empty when there is none.
    template <typename T>
    static Str First(const CodedItems<T>& items);

private:
    Str whatIsContradicted() const;

    const Log& log_;
    Str logName_;  // empty: none is read
    unsigned int count_ = 0;
};
