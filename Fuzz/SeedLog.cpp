// Writes the log that seeds are made of on standard output. Usage: SeedLog CYCLES
#include <cstdio>
#include <cstdlib>

#include "SeedDive.h"

int main(int argc, char** argv) {
    const std::string log = SeedDive::Of(argc > 1 ? atoi(argv[1]) : 3);
    return fwrite(log.data(), 1, log.size(), stdout) == log.size() ? 0 : 1;
}
