#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "support/TempDir.h"

// What one run of the program left behind, beside its files.
struct Outcome {
    int status_;       // exit status; below 0: ended by that signal
    std::string out_;  // standard output
    std::string err_;  // standard error
};

// Runs the built program in a directory of the test's own.
class Program {
public:
    // standardOutput: where it goes, other than into the outcome.
    Outcome run(const std::vector<std::string>& arguments, const char* standardOutput = nullptr) {
        const std::string out = streams_.path("out");
        const pid_t child = fork();
        if (child == 0) execute(arguments, standardOutput == nullptr ? out.c_str() : standardOutput);
        int status = 0;
        waitpid(child, &status, 0);
        const Outcome outcome{WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), streams_.read("out"),
                              streams_.read("err")};
        std::filesystem::remove(out);
        return outcome;
    }

    const TempDir& files() const { return files_; }
    // The names in the directory in ascending order, each followed by a blank.
    std::string list() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(files_.path(""))) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        std::string all;
        for (const std::string& name : names) all += name + " ";
        return all;
    }

private:
    [[noreturn]] void execute(const std::vector<std::string>& arguments, const char* out) const {
        std::vector<char*> argv{const_cast<char*>("unserialize")};
        for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);
        redirect(STDOUT_FILENO, out);
        redirect(STDERR_FILENO, streams_.path("err").c_str());
        if (chdir(files_.path("").c_str()) == 0) execv(UNSERIALIZE_PROGRAM, argv.data());
        _exit(127);
    }
    static void redirect(int stream, const char* path) {
        const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (file < 0 || dup2(file, stream) < 0) _exit(126);
        close(file);
    }

    TempDir files_;    // where it runs
    TempDir streams_;  // what it prints
};
