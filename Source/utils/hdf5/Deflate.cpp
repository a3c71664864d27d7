#include "utils/hdf5/Deflate.h"

#include <libdeflate.h>
#include <zlib.h>

#include <memory>

namespace {

struct FreeCompressor {
    void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
};

// One for each thread, of the level asked for last; null without memory.
libdeflate_compressor* CompressorOf(int level) {
    static thread_local std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor;
    static thread_local int madeFor = -1;
    if (compressor == nullptr || level != madeFor) compressor.reset(libdeflate_alloc_compressor(madeFor = level));
    return compressor.get();
}

}  // namespace

size_t Deflate::Bound(size_t size) {
    return libdeflate_zlib_compress_bound(nullptr, size);
}

size_t Deflate::Compress(const void* bytes, size_t size, void* to, size_t room, int level) {
    libdeflate_compressor* const compressor = CompressorOf(level);
    return compressor == nullptr ? 0 : libdeflate_zlib_compress(compressor, bytes, size, to, room);
}

// The deflate filter of HDF5 cannot be replaced, but it calls this one operation of zlib, in whose place this stands
// for the whole process.
extern "C" int compress2(Bytef* to, uLongf* room, const Bytef* bytes, uLong size, int level) {
    static const int DEFAULT_LEVEL = 6;
    *room = Deflate::Compress(bytes, size, to, *room, level == Z_DEFAULT_COMPRESSION ? DEFAULT_LEVEL : level);
    return *room > 0 ? Z_OK : Z_BUF_ERROR;
}
