#include "logger/writer/FileLogWriter.h"

#include <filesystem>
#include <tuple>

#include "OutputFixture.h"

namespace {
// Notes the file's name and what the file holds by then.
class JournalEncoder : public FileEncoder {
public:
    JournalEncoder(std::string& journal, const TempDir& dir, bool success)
        : journal_(journal), dir_(dir), success_(success) {}
    bool encode(const char* filename, const char*, const char*) override {
        const std::string name = std::filesystem::path(filename).filename();
        journal_ += "encode " + name + "=" + dir_.read(name) + " ";
        return success_;
    }

private:
    std::string& journal_;  // borrowed
    const TempDir& dir_;    // borrowed
    const bool success_;
};

typedef OutputFixture FileLogWriterTest;
}  // namespace

TEST_F(FileLogWriterTest, HeadsFillsAndEndsItsFile) {
    {
        FileLogWriter writer(dir_.path("out").c_str(), inner(3), false, nullptr);
        EXPECT_TRUE(writer.valid());
        for (int i = 0; i < 2; ++i) EXPECT_EQ(3U, writer.write(log_.cycle(i), nullptr));
        EXPECT_EQ(6U, writer.getBytesInFile());
        EXPECT_EQ(2U, writer.getEntriesWritten());
        writer.close();
        EXPECT_TRUE(writer.getOutcome()->isWhole());
        EXPECT_FALSE(writer.valid());
        EXPECT_EQ(0U, writer.write(log_.cycle(2), nullptr));
    }
    EXPECT_EQ("header entry entry footer deleted ", journal_);
    EXPECT_EQ("<......>", dir_.read("out"));
    EXPECT_TRUE(messages_.take().empty());
}

TEST_F(FileLogWriterTest, AppendingHeadsAnEmptyFileAlone) {
    dir_.write("full", "<.>");
    dir_.write("empty", "");
    for (const char* name : {"full", "empty", "missing"}) {
        FileLogWriter writer(dir_.path(name).c_str(), inner(), true, nullptr);
        writer.write(log_.cycle(0), nullptr);
        EXPECT_EQ(name == std::string("full") ? 4U : 1U, writer.getBytesInFile());
    }
    EXPECT_EQ("<.>.>", dir_.read("full"));
    EXPECT_EQ("<.>", dir_.read("empty"));
    EXPECT_EQ("<.>", dir_.read("missing"));
}

TEST_F(FileLogWriterTest, ReplacesALinkRatherThanItsTarget) {
    dir_.write("target", "kept");
    std::filesystem::create_symlink(dir_.path("target"), dir_.path("link"));
    FileLogWriter(dir_.path("link").c_str(), inner(), false, nullptr);
    EXPECT_EQ("kept", dir_.read("target"));
    EXPECT_EQ("<>", dir_.read("link"));
}

TEST_F(FileLogWriterTest, FlushesAsOftenAsTold) {
    const std::tuple<FileLogWriter::FlushFreq, const char*, const char*> cases[] = {
        {FileLogWriter::FLUSH_ONCE, "", ""},
        {FileLogWriter::FLUSH_PER_CYCLE, "", "<."},
        {FileLogWriter::FLUSH_PER_WRITE, "<.", "<."}};
    for (const auto& [flushFreq, afterWrite, afterCycle] : cases) {
        takeJournal();
        FileLogWriter writer(dir_.path("out").c_str(), inner(), false, nullptr);
        writer.setFlushFreq(flushFreq);
        writer.write(log_.cycle(0), nullptr);
        EXPECT_EQ(afterWrite, dir_.read("out"));
        writer.endCycle();
        EXPECT_EQ(afterCycle, dir_.read("out"));
        EXPECT_EQ("header entry ", takeJournal());  // the cycle's end stays with the file
    }
}

TEST_F(FileLogWriterTest, EncodesTheFinishedFileOnce) {
    testing::internal::CaptureStdout();
    { FileLogWriter writer(dir_.path("a").c_str(), inner(), false, new JournalEncoder(journal_, dir_, true)); }
    EXPECT_EQ("header footer encode a=<> deleted ", takeJournal());
    FileLogWriter failing(dir_.path("b").c_str(), inner(), false, new JournalEncoder(journal_, dir_, false));
    failing.close();
    failing.close();
    EXPECT_TRUE(failing.getOutcome()->isIncomplete());
    EXPECT_EQ("header footer encode b=<> ", takeJournal());
    EXPECT_EQ("Error encoding " + dir_.path("b") + "\n", testing::internal::GetCapturedStdout());
}

// A failure is told once, whether the opening, a write or only the close meets it.
TEST_F(FileLogWriterTest, FailuresAreNamedWithTheReason) {
    const std::string missing = dir_.path("missing/out");
    const std::tuple<std::string, int, std::string> cases[] = {
        {missing, 1, "ERROR Failed to open " + missing + ": No such file or directory"},
        {"/dev/full", 3, "ERROR Failed to write /dev/full: No space left on device"},
        {"/dev/full", 0, "ERROR Failed to write /dev/full: No space left on device"}};
    for (const auto& [path, entries, message] : cases) {
        std::shared_ptr<const OutputOutcome> outcome;
        {
            FileLogWriter writer(path.c_str(), inner(), false, new JournalEncoder(journal_, dir_, true));
            outcome = writer.getOutcome();
            EXPECT_EQ(path != missing, writer.isValid());
            writer.setFlushFreq(FileLogWriter::FLUSH_PER_WRITE);
            for (int i = 0; i < entries; ++i) writer.write(log_.cycle(i), nullptr);
        }
        EXPECT_EQ(Lines{message}, messages_.take());
        EXPECT_TRUE(outcome->isIncomplete());
        EXPECT_EQ(std::string::npos, takeJournal().find("encode"));
    }
    EXPECT_TRUE(std::filesystem::exists("/dev/full"));  // a device is written to, not replaced
}

TEST_F(FileLogWriterTest, AFailureOfEachFileIsToldAsSoonAsItIsKnown) {
    FileLogWriter writer("", inner(), false, nullptr);
    for (const auto flushFreq : {FileLogWriter::FLUSH_PER_WRITE, FileLogWriter::FLUSH_PER_CYCLE}) {
        writer.open("/dev/full", false);
        writer.setFlushFreq(flushFreq);
        writer.write(log_.cycle(0), nullptr);
        writer.endCycle();
        EXPECT_EQ(1U, messages_.take().size());
    }
}
