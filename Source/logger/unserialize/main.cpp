#include <fcntl.h>
#include <unistd.h>

#include "io/FileOutStream.h"
#include "logger/unserialize/Unserialize.h"
#include "utils/MemoryReserve.h"

// A file opened in the place of a standard file that was closed would take what is printed. Writing there fails still.
static void HoldStandardFiles() {
    int file = 0;
    while (file >= 0 && file <= STDERR_FILENO) file = open("/dev/null", O_RDONLY);
    if (file > STDERR_FILENO) close(file);
}

int main(int argc, char** argv) {
    HoldStandardFiles();
    MemoryReserve::SetLastAct(&FileOutStream::FlushAll);
    MemoryReserve::Hold();
    return Unserialize::Run(argc, argv);
}
