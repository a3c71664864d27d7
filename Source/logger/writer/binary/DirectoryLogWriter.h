#pragma once

#include "logger/writer/binary/BinaryLogWriter.h"

// A binary writer that begins its files, from the second header on, with the log's whole directory. The very first
// header of the log gives codes to what it holds without one.
class DirectoryLogWriter final : public BinaryLogWriter {
public:
    explicit DirectoryLogWriter(bool withDirectory) : BinaryLogWriter(withDirectory, false) {}

    unsigned int writeHeader() override;  // counts the version entry alone

    // The next header of the current log counts as the first one again.
    static void Uninitialize() { Log::Current().directoryWrites().restart(); }

private:
    bool initialized_ = false;  // this writer wrote a header
};
