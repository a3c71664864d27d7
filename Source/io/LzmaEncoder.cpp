#include "io/LzmaEncoder.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "io/StagedFile.h"
#include "utils/Str.h"

extern "C" {
#include <lzma/LzmaEnc.h>
}

namespace {

const UInt32 DICTIONARY_SIZE = 262144;  // bytes
const size_t LENGTH_BYTES = 8;          // of the uncompressed length, little-endian, after the properties

struct CloseFile {
    void operator()(FILE* file) const { fclose(file); }
};
typedef std::unique_ptr<FILE, CloseFile> File;

void* Allocate(void*, size_t size) {
    return size == 0 ? nullptr : malloc(size);
}
void Free(void*, void* block) {
    free(block);
}
ISzAlloc Allocator = {Allocate, Free};

// The encoder's callbacks get a pointer to their first member.
struct Input {
    ISeqInStream callbacks_;
    FILE* file_;
};
struct Output {
    ISeqOutStream callbacks_;
    FILE* file_;
};

SRes ReadInput(void* input, void* buf, size_t* size) {
    FILE* file = static_cast<Input*>(input)->file_;
    *size = fread(buf, 1, *size, file);
    return ferror(file) ? SZ_ERROR_READ : SZ_OK;
}

size_t WriteOutput(void* output, const void* buf, size_t size) {
    return fwrite(buf, 1, size, static_cast<Output*>(output)->file_);
}

struct DestroyEncoder {
    void operator()(void* encoder) const { LzmaEnc_Destroy(encoder, &Allocator, &Allocator); }
};
typedef std::unique_ptr<void, DestroyEncoder> Encoder;

SRes WriteHeader(const Encoder& encoder, FILE* from, FILE* to) {
    Byte header[LZMA_PROPS_SIZE + LENGTH_BYTES];
    size_t size = LZMA_PROPS_SIZE;
    const SRes result = LzmaEnc_WriteProperties(encoder.get(), header, &size);
    struct stat status;
    if (result != SZ_OK) return result;
    if (fstat(fileno(from), &status) != 0) return SZ_ERROR_READ;
    for (size_t i = 0; i < LENGTH_BYTES; ++i) {
        header[size++] = static_cast<Byte>(static_cast<unsigned long long>(status.st_size) >> 8 * i);
    }
    return fwrite(header, 1, size, to) == size ? SZ_OK : SZ_ERROR_WRITE;
}

SRes Encode(FILE* from, FILE* to) {
    const Encoder encoder(LzmaEnc_Create(&Allocator));
    if (encoder == nullptr) return SZ_ERROR_MEM;
    CLzmaEncProps properties;
    LzmaEncProps_Init(&properties);
    properties.dictSize = DICTIONARY_SIZE;
    SRes result = LzmaEnc_SetProps(encoder.get(), &properties);
    if (result == SZ_OK) result = WriteHeader(encoder, from, to);
    if (result != SZ_OK) return result;
    Input input = {{ReadInput}, from};
    Output output = {{WriteOutput}, to};
    return LzmaEnc_Encode(encoder.get(), &output.callbacks_, &input.callbacks_, nullptr, &Allocator, &Allocator);
}

}  // namespace

bool LzmaEncoder::encode(const char* filename, const char* newName, const char* backupName) {
    const File from(fopen(filename, "rb"));
    if (from == nullptr) return false;
    StagedFile output(newName != nullptr ? Str(newName) : Str(filename) + ".lzma");
    File to(fopen(output.name().cStr(), "wb"));
    if (to == nullptr) return false;
    const bool encoded = Encode(from.get(), to.get()) == SZ_OK;
    const bool closed = fclose(to.release()) == 0;
    if (!encoded || !closed || !output.putInPlace()) return true;
    rename(filename, backupName != nullptr ? backupName : (Str(filename) + ".bak").cStr());
    return false;
}
