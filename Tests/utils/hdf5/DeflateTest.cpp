#include "utils/hdf5/Deflate.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <string>

// What HDF5 calls in zlib's place gives what zlib reads, and says as zlib does when there is not enough room.
TEST(DeflateTest, ItStandsInForZlib) {
    const std::string text = std::string(5000, 'a') + "b";
    std::string packed(Deflate::Bound(text.size()), '\0');
    for (const int level : {Z_DEFAULT_COMPRESSION, 0, 9, Deflate::LEVEL}) {
        uLongf size = packed.size();
        ASSERT_EQ(Z_OK, compress2(reinterpret_cast<Bytef*>(&packed[0]), &size,
                                  reinterpret_cast<const Bytef*>(text.data()), text.size(), level));
        std::string unpacked(text.size(), '\0');
        uLongf unpackedSize = unpacked.size();
        EXPECT_EQ(Z_OK, uncompress(reinterpret_cast<Bytef*>(&unpacked[0]), &unpackedSize,
                                   reinterpret_cast<const Bytef*>(packed.data()), size));
        EXPECT_TRUE(text == unpacked);
        EXPECT_EQ(level == 0, size > text.size());
    }
    uLongf tooSmall = 10;
    EXPECT_EQ(Z_BUF_ERROR, compress2(reinterpret_cast<Bytef*>(&packed[0]), &tooSmall,
                                     reinterpret_cast<const Bytef*>(text.data()), text.size(), 1));
}
