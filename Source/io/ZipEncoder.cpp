#include "io/ZipEncoder.h"

#include <minizip/zip.h>
#include <sys/stat.h>

#include <cstdio>
#include <ctime>

#include "io/StagedFile.h"
#include "utils/Utf8.h"

static const char* const PLAIN_DOCUMENT = ".kml";
static const int FASTEST = 1;  // compression level
static const int MEMORY_LEVEL = 8;
static const unsigned long NAME_IS_UTF8 = 1 << 11;         // general purpose flag of an entry
static const long long ZIP64_FROM = 0xFFFFFFFFLL - 65536;  // bytes; deflating can add a little to a member

static Str WithoutExtension(const Str& name) {
    const size_t slash = name.findLastOf("/");
    const size_t dot = name.findLastOf(".");
    const bool hasExtension = dot != Str::NO_POS && (slash == Str::NO_POS || dot > slash);
    return hasExtension ? name.substr(0, dot) : name;
}

static Str DocumentOf(const Str& archive) {
    return WithoutExtension(archive) + PLAIN_DOCUMENT;
}

static bool Examine(const Str& name, struct stat& status) {
    return stat(name.cStr(), &status) == 0;
}

// The local time of the file's last change, as archives hold it; the epoch when that cannot be told.
static tm_zip EntryTime(const Str& filename) {
    struct stat status = {};
    const Str name = filename.endsWith("/") ? filename.substr(0, filename.length() - 1) : filename;
    const time_t seconds = name != "-" && Examine(name, status) ? status.st_mtime : 0;
    struct tm t = {};
    localtime_r(&seconds, &t);
    tm_zip date = {};
    date.tm_sec = t.tm_sec;
    date.tm_min = t.tm_min;
    date.tm_hour = t.tm_hour;
    date.tm_mday = t.tm_mday;
    date.tm_mon = t.tm_mon;
    date.tm_year = t.tm_year;
    return date;
}

Str ZipEncoder::archiveOf(const Str& filename) const {
    return WithoutExtension(filename) + (defaultExtension_ == nullptr ? ".zip" : defaultExtension_);
}

Str ZipEncoder::companionOf(const Str& filename) const {
    const Str archive = archiveOf(filename);
    return archive == filename ? DocumentOf(filename) : archive;
}

bool ZipEncoder::encode(const char* filename, const char* zipName, const char* backupName) {
    const Str archive = zipName != nullptr ? Str(zipName) : archiveOf(filename);
    Str input = filename;
    if (archive == input) {
        input = DocumentOf(input);
        rename(filename, input.cStr());
    }
    if (!pack(input, archive)) return false;
    if (backupName != nullptr) rename(input.cStr(), backupName);
    return true;
}

// What stands in the archive's place goes only when there is a whole one to take it.
bool ZipEncoder::pack(const Str& filename, const Str& archive) {
    StagedFile staged(archive);
    const zipFile zip = zipOpen64(staged.name().cStr(), APPEND_STATUS_CREATE);
    if (zip == nullptr) {
        printf("error opening %s\n", archive.cStr());
        return false;
    }
    bool packed = packEntry(zip, filename);
    if (zipClose(zip, nullptr) != ZIP_OK || (packed && !staged.putInPlace())) {
        printf("error in closing %s\n", archive.cStr());
        packed = false;
    }
    return packed;
}

bool ZipEncoder::packEntry(void* zip, const Str& filename) {
    struct stat status = {};
    zip_fileinfo info = {};
    info.tmz_date = EntryTime(filename);
    const int zip64 = Examine(filename, status) && status.st_size >= ZIP64_FROM;
    const unsigned long flags = Utf8::IsValid(filename) ? NAME_IS_UTF8 : 0;
    const int opened =
        zipOpenNewFileInZip4_64(zip, filename.cStr(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED, FASTEST, 0,
                                -MAX_WBITS, MEMORY_LEVEL, Z_DEFAULT_STRATEGY, nullptr, 0, 0, flags, zip64);
    if (opened != ZIP_OK) {
        printf("error in opening %s in zipfile\n", filename.cStr());
        return false;
    }
    if (!copyFile(zip, filename)) return false;
    if (zipCloseFileInZip(zip) == ZIP_OK) return true;
    printf("error in closing %s in the zipfile\n", filename.cStr());
    return false;
}

bool ZipEncoder::copyFile(void* zip, const Str& filename) {
    FILE* file = fopen(filename.cStr(), "rb");
    if (file == nullptr) {
        printf("error in opening %s for reading\n", filename.cStr());
        return false;
    }
    bool copied = true;
    size_t n = BLOCK;
    while (copied && n > 0) {
        n = fread(writeBuffer_, 1, BLOCK, file);
        if (n < BLOCK && !feof(file)) {
            printf("error in reading %s\n", filename.cStr());
            copied = false;
        } else if (n > 0 && zipWriteInFileInZip(zip, writeBuffer_, static_cast<unsigned int>(n)) < 0) {
            printf("error in writing %s in the zipfile\n", filename.cStr());
            copied = false;
        }
    }
    fclose(file);
    return copied;
}
