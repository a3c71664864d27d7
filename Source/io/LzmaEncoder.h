#pragma once

#include "io/FileEncoder.h"

// Compresses a finished file into an LZMA file of the standalone form, and keeps the plain one as a backup.
// The result has the opposite sense of what a file writer expects: false on success, and also when one of the files
// cannot be opened. Nothing is printed.
class LzmaEncoder : public FileEncoder {
public:
    // newName: null for the file's name with ".lzma"; backupName: null for the file's name with ".bak". A failure
    // leaves the file in place and no half-made output.
    bool encode(const char* filename, const char* newName, const char* backupName) override;
};
