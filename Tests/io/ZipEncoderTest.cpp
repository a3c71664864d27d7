#include "io/ZipEncoder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <tuple>

#include "support/Command.h"
#include "support/TempDir.h"

static long long PretendedSize = 0;  // bytes, of files named "huge"

// Takes the place of the system's: a file of the size that needs the large form would take minutes to pack.
extern "C" int stat64(const char* path, struct stat64* status) noexcept {
    const int result = fstatat64(AT_FDCWD, path, status, 0);
    if (std::filesystem::path(path).filename() == "huge") status->st_size = PretendedSize;
    return result;
}

class ZipEncoderTest : public testing::Test {
protected:
    // The names in an archive, a line each, and the bytes of all that it holds.
    std::string names(const std::string& archive) { return OutputOf("unzip -Z1 " + dir_.path(archive)); }
    std::string contents(const std::string& archive) { return OutputOf("unzip -p " + dir_.path(archive)); }
    // What encoding prints when it fails.
    std::string failure(const std::string& file, const std::string& archive) {
        testing::internal::CaptureStdout();
        EXPECT_FALSE(ZipEncoder(nullptr).encode(file.c_str(), archive.c_str(), nullptr));
        return testing::internal::GetCapturedStdout();
    }

    TempDir dir_;
};

TEST_F(ZipEncoderTest, ALinkInItsPlaceLeadsNowhereElse) {
    dir_.write("dive.kml", "track");
    dir_.write("precious", "log");
    std::filesystem::create_symlink(dir_.path("precious"), dir_.path("dive.kmz"));
    EXPECT_TRUE(ZipEncoder(".kmz").encode(dir_.path("dive.kml").c_str(), nullptr, nullptr));
    EXPECT_EQ("log", dir_.read("precious"));
    EXPECT_FALSE(std::filesystem::is_symlink(dir_.path("dive.kmz")));
}

TEST_F(ZipEncoderTest, PacksTheFileUnderItsOwnName) {
    for (size_t size : {0, 1, 16384, 100000}) {
        const std::string bytes(size, 'x');
        const std::string file = dir_.write("track.kml", bytes);
        EXPECT_TRUE(ZipEncoder(".kmz").encode(file.c_str(), nullptr, nullptr));
        EXPECT_EQ(file + "\n", names("track.kmz"));
        EXPECT_EQ(bytes, contents("track.kmz"));
    }
}

// It may grow a little by being packed.
TEST_F(ZipEncoderTest, AFileNearFourGigabytesTakesTheLargeForm) {
    const std::string file = dir_.write("huge", "x");
    const std::pair<long long, char> cases[] = {
        {1, 20}, {0xFFFFFFFF - 65537LL, 20}, {0xFFFFFFFF - 65536LL, 45}, {1LL << 40, 45}};  // version that reads it
    for (const auto& [size, version] : cases) {
        PretendedSize = size;
        EXPECT_TRUE(ZipEncoder(nullptr).encode(file.c_str(), nullptr, nullptr));
        EXPECT_EQ(version, dir_.read("huge.zip").at(4)) << size;
        EXPECT_EQ("x", contents("huge.zip"));
    }
}

TEST_F(ZipEncoderTest, NamesTheArchiveAfterTheFile) {
    std::filesystem::create_directory(dir_.path("v1.2"));
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"plain", "plain.zip", nullptr}, {"a.b.kml", "a.b.kmz", ".kmz"}, {"v1.2/track", "v1.2/track.kmz", ".kmz"}};
    for (const auto& [file, archive, extension] : cases) {
        EXPECT_TRUE(ZipEncoder(extension).encode(dir_.write(file, "x").c_str(), nullptr, nullptr));
        EXPECT_EQ("x", contents(archive)) << archive;
    }
    EXPECT_TRUE(ZipEncoder(".kmz").encode(dir_.path("plain").c_str(), dir_.path("b").c_str(), dir_.path("c").c_str()));
    EXPECT_EQ("x", contents("b"));
    EXPECT_FALSE(dir_.has("plain"));
    EXPECT_EQ("x", dir_.read("c"));
}

TEST_F(ZipEncoderTest, AnArchiveInTheFilesPlaceHoldsItAsADocument) {
    EXPECT_TRUE(ZipEncoder(".kmz").encode(dir_.write("track.kmz", "x").c_str(), nullptr, nullptr));
    EXPECT_EQ(dir_.path("track.kml") + "\n", names("track.kmz"));
    EXPECT_EQ("x", dir_.read("track.kml"));
    EXPECT_STREQ("track.kml", ZipEncoder(".kmz").companionOf("track.kmz").cStr());
    EXPECT_STREQ("track.kmz", ZipEncoder(".kmz").companionOf("track.kml").cStr());
}

// "defS": packed as fast as can be.
TEST_F(ZipEncoderTest, TheMemberHasTheLocalTimeOfTheFile) {
    setenv("TZ", "TWO-2", 1);
    tzset();
    const std::string file = dir_.write("a", "x");
    const struct timespec times[2] = {{1338553800, 0}, {1338553800, 0}};
    utimensat(AT_FDCWD, file.c_str(), times, 0);
    EXPECT_TRUE(ZipEncoder(nullptr).encode(file.c_str(), nullptr, nullptr));
    unsetenv("TZ");
    tzset();
    EXPECT_NE(std::string::npos, OutputOf("unzip -Z -T " + dir_.path("a.zip")).find(" defS 20120601.143000"));
}

TEST_F(ZipEncoderTest, AFailureIsReportedAndLeavesWhatWasThere) {
    const std::string missing = dir_.path("missing"), archive = dir_.path("a.zip");
    EXPECT_EQ("error in opening " + missing + " for reading\n", failure(missing, archive));
    EXPECT_FALSE(dir_.has("a.zip"));
    const std::string file = dir_.write("a", "x"), nowhere = dir_.path("missing/a.zip");
    EXPECT_EQ("error opening " + nowhere + "\n", failure(file, nowhere));
    std::filesystem::create_directory(dir_.path("folder"));
    EXPECT_EQ("error in reading " + dir_.path("folder") + "\n", failure(dir_.path("folder"), archive));
    EXPECT_FALSE(dir_.has("a.zip"));
    EXPECT_EQ("error in closing " + file + " in the zipfile\nerror in closing /dev/full\n", failure(file, "/dev/full"));
    std::string noise;
    for (unsigned int i = 0; i < 1000000; ++i) noise += static_cast<char>((i * i) >> 11 ^ (i * 2654435761u) >> 24);
    const std::string large = dir_.write("large", noise);
    EXPECT_EQ(0u, failure(large, "/dev/full").find("error in writing " + large + " in the zipfile\n"));
    dir_.write("a.zip", "earlier");
    EXPECT_EQ("error in opening " + missing + " for reading\n", failure(missing, archive));
    EXPECT_EQ("earlier", dir_.read("a.zip"));
    EXPECT_EQ("x", dir_.read("a"));
}
