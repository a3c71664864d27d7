#include "logger/writer/table/PageMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstring>

#include "support/FileSizeLimit.h"
#include "support/NamelessFiles.h"
#include "support/TempDir.h"

namespace {

const PageMemory::Room ROOM = {16, PageMemory::RECENT + 2};
const int PAGES = 100;

// Each page is its number, and that is read in an order that goes back and forth; some are given back and used anew.
void writeAndReadPages(PageMemory& memory) {
    PageMemory::Page pages[PAGES];
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < PAGES; ++i) {
            const int number = i * 100 + round;
            memcpy(memory.use(pages[i]), &number, sizeof number);
        }
        for (int i = 0; i < PAGES; ++i) {
            const int page = i * 37 % PAGES;
            int number = 0;
            memcpy(&number, memory.use(pages[page]), sizeof number);
            EXPECT_EQ(page * 100 + round, number);
            if (page % 3 == round) memory.drop(pages[page]);
        }
    }
    for (PageMemory::Page& page : pages) memory.drop(page);
}

TEST(PageMemoryTest, PagesComeBackAsTheyLeft) {
    PageMemory memory(ROOM);
    writeAndReadPages(memory);
    PageMemory::Page pages[PAGES];
    for (PageMemory::Page& page : pages) memory.use(page);
    EXPECT_EQ(ROOM.pages_ * ROOM.pageBytes_, memory.heldBytes());
    for (PageMemory::Page& page : pages) memory.drop(page);
    EXPECT_EQ(0u, memory.heldBytes());
}

TEST(PageMemoryTest, WhereTheFileTakesNoMoreTheyStay) {
    signal(SIGXFSZ, SIG_IGN);
    {
        const FileSizeLimit limit(20 * ROOM.pageBytes_);
        PageMemory memory(ROOM);
        writeAndReadPages(memory);
    }
    signal(SIGXFSZ, SIG_DFL);
}

TEST(PageMemoryTest, PagesThatCannotBeReadAreZerosAndTold) {
    const TempDir dir;
    const std::string neighbour = dir.write("out", "");
    PageMemory memory(ROOM, [&] { return Str(neighbour.c_str()); });
    PageMemory::Page pages[PAGES];
    for (PageMemory::Page& page : pages) memset(memory.use(page), 1, ROOM.pageBytes_);
    ASSERT_EQ(1, NamelessFiles::MakeUnreadable(dir.path("")));
    const char* const here = static_cast<const char*>(memory.use(pages[PAGES - 1]));
    EXPECT_EQ(ROOM.pageBytes_, static_cast<size_t>(std::count(here, here + ROOM.pageBytes_, 1)));
    EXPECT_FALSE(memory.hasLost());
    const char* const lost = static_cast<const char*>(memory.use(pages[0]));
    EXPECT_EQ(ROOM.pageBytes_, static_cast<size_t>(std::count(lost, lost + ROOM.pageBytes_, 0)));
    EXPECT_TRUE(memory.hasLost());
    EXPECT_EQ("a temporary file in " + dir.path("") + ": Bad file descriptor", memory.lossReason().cStr());
    for (PageMemory::Page& page : pages) memory.drop(page);
}

}  // namespace
