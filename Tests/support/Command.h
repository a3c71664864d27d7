#pragma once

#include <cstdio>
#include <string>

// Runs a shell command, such as another reader of our files; the result is what it prints, errors too when they are
// redirected.
inline std::string OutputOf(const std::string& command) {
    std::string output;
    FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return "cannot run " + command;
    for (int c = getc(pipe); c != EOF; c = getc(pipe)) output += static_cast<char>(c);
    pclose(pipe);
    return output;
}
