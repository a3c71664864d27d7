#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <random>
#include <thread>

#include "io/FileInStream.h"
#include "io/FileOutStream.h"
#include "io/OutText.h"
#include "support/FileSizeLimit.h"
#include "support/MemoryStreams.h"
#include "support/TempDir.h"

class FileStreamTest : public testing::Test {
protected:
    const char* path() const { return path_.c_str(); }
    void write(const char* text) const { dir_.write("file", text); }
    std::string content(const char* name = "file") const { return dir_.read(name); }
    // Bytes taken on loan; none where they are not at hand.
    static std::string lent(InStream& in, size_t n) {
        InStream::Loan loan(in);
        ByteCursor bytes = loan.bytes();
        const char* const taken = bytes.take(n);
        loan.keepUpTo(bytes);
        return taken == nullptr ? "" : std::string(taken, n);
    }

private:
    const TempDir dir_;
    const std::string path_ = dir_.path("file");
};

TEST_F(FileStreamTest, OpensToReplaceToAppendAndToUpdate) {
    FileOutStream out(path(), false, false);
    out << "abc";
    EXPECT_EQ(3, out.tell());
    EXPECT_EQ("", content());
    out.flush();
    EXPECT_EQ("abc", content());
    EXPECT_TRUE(out.open(path(), true, false));
    out << "def";
    EXPECT_TRUE(out.open(path(), false, true));
    EXPECT_TRUE(out.seek(2));
    out << "X";
    out.close();
    EXPECT_EQ("abXdef", content());
    EXPECT_TRUE(out.open(path(), false, false));
    EXPECT_EQ("", content());
}

TEST_F(FileStreamTest, KeepsTheReasonOfTheFirstFailure) {
    FileOutStream out(path(), false, true);  // there is nothing to update
    EXPECT_EQ(ENOENT, out.firstError());
    out << "abc";
    EXPECT_EQ(0u, out.bytesWritten());
    EXPECT_FALSE(out.seek(0));

    ASSERT_TRUE(out.open("/dev/full", false, false));
    out << "abc";
    EXPECT_EQ(0, out.firstError());
    out.close();
    EXPECT_EQ(ENOSPC, out.firstError());

    FileOutStream standard(stdout, true);
    standard.close();  // stays open
    EXPECT_TRUE(standard.isWritable());
    EXPECT_STREQ("unknown", FileOutStream().getName());
}

TEST_F(FileStreamTest, WhatTheFileDoesNotTakeIsTriedAgain) {
    FileOutStream out(path(), false, false);
    const std::string text(1500, 't');
    signal(SIGXFSZ, SIG_IGN);
    {
        const FileSizeLimit limit(1000);
        out << text.c_str();
        out.flush();
        EXPECT_EQ(EFBIG, out.firstError());
        EXPECT_EQ(1000u, content().size());
        EXPECT_FALSE(out.seek(0));
        EXPECT_EQ(1500, out.tell());
        EXPECT_EQ(0u, out.write(std::string(300000, 'x').data(), 300000).bytesWritten());
    }
    signal(SIGXFSZ, SIG_DFL);
    out.close();
    EXPECT_EQ(text, content());
}

// What goes into the room that the stream lends, and what does not fit there, comes out in the order of its coming.
TEST_F(FileStreamTest, LendsRoomToNumbersAndTexts) {
    FileOutStream out(path(), false, false);
    MemoryOutStream expected;  // lends none
    std::mt19937_64 random(20120601);
    for (int i = 0; i < 3000; ++i) {
        const unsigned long long bits = random();
        const std::string piece(bits % (i % 500 == 0 ? 300000 : 3000), static_cast<char>('a' + i % 26));
        for (OutStream* const stream : {static_cast<OutStream*>(&out), static_cast<OutStream*>(&expected)}) {
            stream->writeLongLongCompact(static_cast<long long>(bits) >> bits % 64);
            stream->writeUShortCompact(static_cast<unsigned short>(bits)).writeInt24(i).writeDouble(i);
            if (i % 3 == 0) stream->write(piece.data(), piece.size());
            OutText text(*stream);
            text.append(piece.data(), piece.size()).appendInt(i);
            EXPECT_EQ(text.length(), text.put());
            EXPECT_EQ(text.length(), stream->bytesWritten());
        }
    }
    EXPECT_EQ(static_cast<int>(expected.bytes_.size()), out.tell());
    out.close();
    EXPECT_TRUE(expected.bytes_ == content());
    EXPECT_EQ(nullptr, out.roomFor(1));
}

TEST_F(FileStreamTest, AllThatAreOpenCanBeFlushedAtOnce) {
    FileOutStream out(path(), false, false);
    FileOutStream other((path() + std::string("2")).c_str(), false, false);
    { const FileOutStream gone((path() + std::string("3")).c_str(), false, false); }
    out << "one";
    other << "two";
    EXPECT_EQ("", content());
    FileOutStream::FlushAll();
    EXPECT_EQ("one", content());
    EXPECT_EQ("two", content("file2"));
}

TEST_F(FileStreamTest, LendsNoRoomWhileThereAreOtherThreads) {
    FileOutStream out(path(), false, false);
    EXPECT_NE(nullptr, out.roomFor(1));
    std::thread([&out] { EXPECT_EQ(nullptr, out.roomFor(1)); }).join();
}

TEST_F(FileStreamTest, APipeIsNotWaitedForUntilItIsRead) {
    ASSERT_EQ(0, mkfifo(path(), 0600));
    FileOutStream out(path(), false, false);
    EXPECT_EQ(ENXIO, out.firstError());
    const int reader = open(path(), O_RDONLY | O_NONBLOCK);
    EXPECT_TRUE(out.open(path(), false, false));
    out << "abc";
    out.close();
    char text[8] = "";
    EXPECT_EQ(3, read(reader, text, sizeof text));
    EXPECT_STREQ("abc", text);
    close(reader);
}

// As standard output does on a terminal.
TEST_F(FileStreamTest, WritesAFileThatIsFlushedAtEachLine) {
    FILE* const file = fopen(path(), "wb");
    setvbuf(file, nullptr, _IOLBF, 1024);
    const std::string piece(100, 'p');
    std::string text = "x";
    {
        FileOutStream out(file, true);
        EXPECT_EQ(nullptr, out.roomFor(1));  // others write there too
        out << "x";
        for (int i = 0; i < 50; ++i, text += piece) out << piece.c_str();
    }
    EXPECT_EQ(text, content());
}

// Pieces of all sizes, some of them on loan, from places anywhere and after the end; against what the file holds.
TEST_F(FileStreamTest, HoweverItIsReadTheBytesAreTheFiles) {
    std::minstd_rand random(5);
    std::string text(200000, '\0');
    for (char& byte : text) byte = static_cast<char>(random() >> 8);
    FileOutStream(path(), false, false).write(text.data(), text.size());
    FileInStream in(path());
    size_t at = 0;
    size_t total = 0;
    bool hasMetEnd = false;
    for (int i = 0; i < 3000; ++i) {
        if (random() % 8 == 0) {
            at = random() % 4 == 0 ? text.size() - random() % 3 : random() % text.size();
            ASSERT_TRUE(in.seekTo(static_cast<long long>(at)));
            hasMetEnd = false;
        }
        const size_t wanted = random() % 2 == 0 ? random() % 4 : random() % 100000;
        const size_t left = text.size() - at;
        std::string got(wanted, '\0');
        if (random() % 2 == 0) {
            got = lent(in, wanted);
            hasMetEnd = hasMetEnd || left == 0;
            ASSERT_TRUE(got.empty() || got.size() == wanted);
        } else {
            got.resize(in.read(&got[0], wanted).bytesRead());
            ASSERT_EQ(std::min(wanted, left), got.size());
            hasMetEnd = hasMetEnd || wanted > left;
        }
        ASSERT_EQ(hasMetEnd, in.eof());
        ASSERT_EQ(text.substr(at, got.size()), got);
        at += got.size();
        total += got.size();
        ASSERT_EQ(static_cast<long long>(at), in.tell());
        ASSERT_EQ(total, in.getTotalBytesRead());
    }
}

TEST_F(FileStreamTest, GoesOnAfterTheEndWhenTheFileGrew) {
    write("ab");
    FileInStream in(path());
    char buf[4];
    EXPECT_EQ(2u, in.read(buf, 4).bytesRead());
    EXPECT_TRUE(in.eof());
    FileOutStream(path(), true, false) << "cd";
    EXPECT_EQ(0u, in.read(buf, 1).bytesRead());  // the end stays where it was met
    in.clearErr();
    EXPECT_EQ(1u, in.read(buf, 1).bytesRead());
    EXPECT_EQ('c', buf[0]);
    EXPECT_EQ("d", lent(in, 1));
    EXPECT_FALSE(in.seekTo(-1));
}

// Of a pipe there is what its writer has written: nothing waits for more than is asked for.
TEST_F(FileStreamTest, TakesWhatAPipeHas) {
    ASSERT_EQ(0, mkfifo(path(), 0600));
    const int both = open(path(), O_RDWR);  // the pipe stays open for writing
    ASSERT_EQ(3, ::write(both, "abc", 3));
    FileInStream in(path());
    char text[4] = "";
    EXPECT_EQ(2u, in.read(text, 2).bytesRead());
    EXPECT_EQ("c", lent(in, 1));
    ASSERT_EQ(1, ::write(both, "d", 1));
    EXPECT_EQ("d", lent(in, 1));
    EXPECT_FALSE(in.seekTo(0));
    EXPECT_EQ(-1, in.tell());
    EXPECT_FALSE(in.eof());
    close(both);
    EXPECT_EQ(0u, in.read(text, 1).bytesRead());
    EXPECT_TRUE(in.eof());
}

TEST_F(FileStreamTest, ReachesPositionsPastFourGibibytes) {
    static const long long FAR = 5ll << 30;
    write("");
    ASSERT_EQ(0, truncate(path(), FAR + 2));  // sparse
    FileInStream in(path());
    EXPECT_TRUE(in.seekTo(FAR));
    char buf[4];
    EXPECT_EQ(2u, in.read(buf, 4).bytesRead());
    EXPECT_EQ(FAR + 2, in.tell());

    FileOutStream out(path(), true, false);
    out << "x";
    out.flush();
    EXPECT_EQ(2147483647, out.tell());
}

TEST_F(FileStreamTest, NothingIsReadWithoutAFile) {
    FileInStream in(path());
    EXPECT_TRUE(in.eof());
    in.setBytesRead(1);  // a stale count must not pass for a byte
    long long value = 7;
    unsigned short code = 7;
    in.readLongLongCompact(value).readUShortCompact(code);
    EXPECT_EQ(7, value);
    EXPECT_EQ(7, code);
    EXPECT_FALSE(in.seek(0));

    FileInStream folder("/");  // opens, and refuses to be read
    char c;
    EXPECT_EQ(0u, folder.read(&c, 1).bytesRead());
    EXPECT_FALSE(folder.eof());
    EXPECT_EQ(EISDIR, folder.readError());
    EXPECT_TRUE(folder.hasFailed());
}

TEST_F(FileStreamTest, TakesOneFileAfterAnother) {
    write("abc");
    FILE* const borrowed = fopen(path(), "rb");
    char c = 0;
    {
        FileInStream in(borrowed, false);
        in.read(&c, 1);
        FILE* const begun = fopen(path(), "rb");
        fgetc(begun);
        in.setFile(begun, "second", true);
        EXPECT_STREQ("second", in.getName());
        in.read(&c, 1);
        EXPECT_EQ('b', c);
    }
    EXPECT_EQ('b', fgetc(borrowed));  // neither closed nor left with a buffer that is gone
    fclose(borrowed);
}
