#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <string>

// Those that this process has open in a folder and that nobody can find by a name.
class NamelessFiles {
public:
    // They take what is written but give nothing back, for EBADF, as from a medium that fails. How many there were.
    static int MakeUnreadable(const std::string& folder) {
        static const std::string NO_NAME = " (deleted)";
        int count = 0;
        for (const auto& file : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code gone;
            const std::string name = std::filesystem::read_symlink(file.path(), gone).string();
            if (name.rfind(folder, 0) != 0 || name.find(NO_NAME) == std::string::npos) continue;
            const int writable = open(file.path().c_str(), O_WRONLY);
            if (dup2(writable, std::stoi(file.path().filename().string())) >= 0) ++count;
            close(writable);
        }
        return count;
    }
};
