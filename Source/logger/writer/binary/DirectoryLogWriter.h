#pragma once

#include "logger/writer/binary/BinaryLogWriter.h"

// A binary writer that begins its files, from the second header on, with the Slate's whole directory. The very first
// header in the process gives codes to what the Slate holds without one.
class DirectoryLogWriter final : public BinaryLogWriter {
public:
    explicit DirectoryLogWriter(bool withDirectory) : BinaryLogWriter(withDirectory, false) {}

    unsigned int writeHeader() override;  // counts the version entry alone

    static void Uninitialize();  // the next header counts as the first one again

private:
    bool initialized_ = false;  // this writer wrote a header

    static bool Initialized_;  // some writer wrote a header
    static bool Restarted_;    // no whole directory was written since the start
};
