#pragma once

#include <cstddef>

// What chunks are compressed with: libdeflate, which gives the zlib format two to three times faster than zlib.
namespace Deflate {
static const int LEVEL = 1;  // the fastest

size_t Bound(size_t size);  // bytes that so many can come to
// The bytes in the zlib format, into room for their bound; their number, 0 without memory.
size_t Compress(const void* bytes, size_t size, void* to, size_t room, int level = LEVEL);
}  // namespace Deflate
