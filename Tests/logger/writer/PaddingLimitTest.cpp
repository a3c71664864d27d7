#include "logger/writer/PaddingLimit.h"

#include <gtest/gtest.h>

#include "support/SmallLog.h"

// Full arrays are never too many; what is padded may be 256 MB and a hundred times what the log brought.
TEST(PaddingLimitTest, OnlyWhatThePaddingWouldPassIsLeftOut) {
    static const size_t MEGABYTE = 1048576;
    SmallLog log;
    DataAccess* const access = log.declareBlob("A.x", Units::NONE, BLOB_UINT8, 1024);
    const DataEntry& full = *log.blob(access, 0, std::vector<unsigned char>(1024));
    const DataEntry& quarter = *log.blob(access, 0, std::vector<unsigned char>(256));
    const DataEntry& empty = *log.blob(access, 0, std::vector<unsigned char>());
    EXPECT_TRUE(PaddingLimit().admits(empty, 256 * MEGABYTE + 400, 1)) << "four bytes came";
    EXPECT_FALSE(PaddingLimit().admits(empty, 256 * MEGABYTE + 401, 1));
    PaddingLimit limit;
    for (int i = 0; i < 256; ++i) EXPECT_TRUE(limit.admits(full, 4 * MEGABYTE, 1024));
    for (int i = 0; i < 256; ++i) EXPECT_TRUE(limit.admits(empty, MEGABYTE, 1024));
    for (int i = 0; i < 25; ++i) EXPECT_TRUE(limit.admits(empty, MEGABYTE, 1024)) << "the full ones brought room";
    EXPECT_FALSE(limit.admits(empty, MEGABYTE, 1024));
    EXPECT_FALSE(limit.admits(quarter, MEGABYTE, 1024));
    EXPECT_TRUE(limit.admits(full, MEGABYTE, 1024));
    EXPECT_TRUE(limit.admits(empty, 0, 1024)) << "room that is taken already";
    for (int i = 0; i < 10000; ++i) EXPECT_TRUE(limit.admits(quarter, 4096, 1024)) << "they keep pace";
}
