#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// A directory of the test's own, removed with all that it holds when the test ends.
class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "slate_test_XXXXXX").string();
        if (mkdtemp(pattern.data()) != nullptr) path_ = pattern;
    }
    ~TempDir() {
        std::error_code ignored;
        if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    std::string path(const std::string& name) const { return (path_ / name).string(); }
    bool has(const std::string& name) const { return std::filesystem::exists(path_ / name); }
    // The file's bytes; empty when there is none.
    std::string read(const std::string& name) const {
        std::ifstream in(path_ / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    // Writes the file; the result is its path.
    std::string write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return path(name);
    }

private:
    std::filesystem::path path_;
};
