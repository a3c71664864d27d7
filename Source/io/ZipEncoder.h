#pragma once

#include <cstddef>

#include "io/FileEncoder.h"
#include "utils/Str.h"

// Packs one file into a ZIP archive that holds it under its own name. The file itself stays in place.
class ZipEncoder : public FileEncoder {
public:
    explicit ZipEncoder(const char* defaultExtension)
        : defaultExtension_(defaultExtension) {}  // borrowed, with its dot; null: ".zip"

    // zipName: the archive, or null for the file's name with its extension replaced by the default one. When both names
    // are equal the file is first renamed to the name with ".kml", and that is packed. Failures are printed on standard
    // output and leave what stood in the archive's place.
    bool encode(const char* filename, const char* zipName, const char* backupName) override;
    // The file that encoding makes beside this one: the archive or, when that takes its name, the document.
    Str companionOf(const Str& filename) const;

private:
    static constexpr size_t BLOCK = 16384;  // bytes copied at a time

    Str archiveOf(const Str& filename) const;
    bool pack(const Str& filename, const Str& archive);
    bool packEntry(void* zip, const Str& filename);
    bool copyFile(void* zip, const Str& filename);

    const char* const defaultExtension_;
    char writeBuffer_[BLOCK];
};
