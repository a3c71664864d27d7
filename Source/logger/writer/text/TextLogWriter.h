#pragma once

#include "logger/engine/LogWriter.h"

// Writes each entry as one line: its text, then a line feed. An entry without a text writes nothing.
class TextLogWriter final : public LogWriter {
public:
    // withDirectory: each file begins with the log's version. The stream is borrowed.
    explicit TextLogWriter(bool withDirectory) : withDirectory_(withDirectory) {}
    TextLogWriter(OutStream& out, bool withDirectory) : LogWriter(out), withDirectory_(withDirectory) {}

    unsigned int writeHeader() override;
    // The text's length and one, also for an empty text.
    unsigned int write(const LogEntry* entry, const Unit* unit) override;

private:
    const bool withDirectory_;  // the file begins with a version entry, in the log's form
};
