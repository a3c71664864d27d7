#include "logger/writer/binary/DirectoryLogWriter.h"

#include <gtest/gtest.h>

#include "support/MemoryStreams.h"
#include "support/SmallLog.h"

class DirectoryLogWriterTest : public testing::Test {
protected:
    // What a header of the writer adds to its file.
    std::string header(DirectoryLogWriter& writer) {
        MemoryOutStream out;
        writer.setOutStream(out);
        EXPECT_EQ(8U, writer.writeHeader());
        return out.bytes_;
    }

    SmallLog log_;
};

TEST_F(DirectoryLogWriterTest, TheSecondHeaderCarriesTheWholeDirectory) {
    log_.declare("Depth.depth", Units::METER, FLOAT3);
    DirectoryLogWriter writer(true);
    EXPECT_EQ("*v 0008\n", header(writer));
    EXPECT_EQ(
        "*v 0008\n"
        "*n code=0000 name=\"Depth\"\n"
        "*e code=0000 elementURI=\"Depth.depth\" type=02\n"
        "*a code=0000 owner=0000 element=0000 universal=3FFF unitName=\"meter\" type=0B size=0003 fl=01\n",
        header(writer));
    DirectoryLogWriter another(true);
    EXPECT_EQ("*v 0008\n", header(another));
}
