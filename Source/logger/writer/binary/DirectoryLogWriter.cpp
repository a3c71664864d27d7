#include "logger/writer/binary/DirectoryLogWriter.h"

#include "data/Slate.h"

bool DirectoryLogWriter::Initialized_ = false;
bool DirectoryLogWriter::Restarted_ = true;

unsigned int DirectoryLogWriter::writeHeader() {
    const unsigned int bytes = BinaryLogWriter::writeHeader();
    if (!Initialized_) {
        Slate::WriteDirectory(nullptr, Restarted_);
        Initialized_ = true;
    } else if (initialized_) {
        Slate::WriteDirectory(this, Restarted_);
        Restarted_ = false;
    }
    initialized_ = true;
    return bytes;
}

void DirectoryLogWriter::Uninitialize() {
    Initialized_ = false;
    Restarted_ = true;
}
