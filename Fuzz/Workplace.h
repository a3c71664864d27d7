#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "FreshSlate.h"
#include "logger/unserialize/Unserialize.h"
#include "support/TempDir.h"

typedef std::map<std::string, std::string> Files;  // bytes by name

inline bool HoldsAll(const Files& files, const Files& wanted) {
    return std::all_of(wanted.begin(), wanted.end(), [&files](const auto& file) {
        const auto found = files.find(file.first);
        return found != files.end() && found->second == file.second;
    });
}

// Runs the program, in the fuzzer's own process, in an empty directory of its own. What it prints is dropped.
class Workplace {
public:
    Workplace() {
        const int nowhere = open("/dev/null", O_WRONLY);
        if (home_ < 0 || nowhere < 0 || dup2(nowhere, STDOUT_FILENO) < 0) abort();
        close(nowhere);
    }

    // The files that stand there after a run with these files and arguments.
    Files run(const Files& inputs, std::vector<std::string> arguments) const {
        for (const auto& [name, bytes] : inputs) write(name, bytes);
        arguments.insert(arguments.begin(), "unserialize");
        std::vector<char*> argv;
        for (std::string& argument : arguments) argv.push_back(argument.data());
        argv.push_back(nullptr);
        ActAsOneThread();
        enter();
        Unserialize::Run(static_cast<int>(arguments.size()), argv.data());
        if (fchdir(home_) != 0) abort();
        return takeAll();
    }

private:
    void enter() const {
        if (chdir(place_.path("").c_str()) != 0) abort();
    }
    void write(const std::string& name, const std::string& bytes) const {
        if (name.find('/') != std::string::npos) {
            std::filesystem::create_directories(std::filesystem::path(place_.path(name)).parent_path());
        }
        place_.write(name, bytes);
    }
    Files takeAll() const {
        const std::filesystem::path place = place_.path("");
        Files all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
            const std::string name = entry.path().lexically_relative(place);
            if (entry.is_regular_file()) all[name] = place_.read(name);
        }
        for (const auto& entry : std::filesystem::directory_iterator(place)) std::filesystem::remove_all(entry);
        return all;
    }

    const int home_ = open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const TempDir place_;
};
