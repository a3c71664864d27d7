#pragma once

// Post-processes one finished file, which is closed by then. Owned by the file writer that applies it.
class FileEncoder {
public:
    virtual ~FileEncoder() {}
    // newName: the encoded file, or null for the encoder's own choice; backupName: what the plain file is renamed to,
    // or null for the encoder's own way. The result is true on success (an LZMA encoder answers the other way round).
    virtual bool encode(const char* filename, const char* newName, const char* backupName) = 0;
};
