#include "logger/writer/binary/DirectoryLogWriter.h"

#include <gtest/gtest.h>

#include "support/MemoryStreams.h"
#include "support/SmallLog.h"

TEST(DirectoryLogWriterTest, TheSecondHeaderOfAWriterCarriesTheWholeDirectory) {
    SmallLog log;
    log.declare("Depth.depth", Units::METER, FLOAT3);
    const std::string directory =
        "*n code=0000 name=\"Depth\"\n"
        "*e code=0000 elementURI=\"Depth.depth\" type=02\n"
        "*a code=0000 owner=0000 element=0000 universal=3FFF unitName=\"meter\" type=0B size=0003 fl=01\n";
    DirectoryLogWriter writer(true), another(true);
    const std::pair<DirectoryLogWriter*, std::string> headers[] = {{&writer, ""}, {&writer, directory}, {&another, ""}};
    for (const auto& [from, records] : headers) {
        MemoryOutStream out;
        from->setOutStream(out);
        EXPECT_EQ(8U, from->writeHeader());
        EXPECT_EQ("*v 0008\n" + records, out.bytes_);
    }
}
