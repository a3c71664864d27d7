#include "utils/MemoryReserve.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <new>

static const size_t RESERVED = 16777216;   // bytes; what the array libraries need to finish their files
static const size_t LEAST_ROOM = 4194304;  // bytes without which no library is called
static const int FAILURE_STATUS = 1;

void* MemoryReserve::Reserve_ = nullptr;
bool MemoryReserve::WasTaken_ = false;
int MemoryReserve::Loans_ = 0;
size_t MemoryReserve::Assured_ = 0;
Str MemoryReserve::Task_;
void (*MemoryReserve::LastAct_)() = [] {};

// From the system itself and back to it at once, which the heap would not do. Null when it is refused.
static void* Map(size_t bytes) {
    void* const block = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return block == MAP_FAILED ? nullptr : block;
}

static bool HasRoom(size_t bytes) {
    void* const block = Map(bytes);
    if (block != nullptr) munmap(block, bytes);
    return block != nullptr;
}

bool MemoryReserve::Hold() {
    std::set_new_handler(&Take);
    if (Reserve_ == nullptr) Reserve_ = Map(RESERVED);
    if (Reserve_ != nullptr) WasTaken_ = false;
    return Reserve_ != nullptr;
}

void MemoryReserve::Take() {
    if (Reserve_ != nullptr) {
        munmap(Reserve_, RESERVED);
        Reserve_ = nullptr;
        WasTaken_ = true;
        return;
    }
    LastAct_();
    fflush(nullptr);
    fprintf(stderr, "No memory is left in the middle of %s; what was written stays\n", Task_.cStr());
    _exit(FAILURE_STATUS);
}

MemoryReserve::Loan::Loan(size_t bytes) : lends_(Reserve_ != nullptr) {
    const size_t needed = std::max(bytes, LEAST_ROOM);
    const bool isOutermost = Loans_++ == 0;
    if (lends_) munmap(Reserve_, RESERVED);
    Reserve_ = nullptr;
    if (isOutermost) Assured_ = lends_ ? RESERVED : 0;
    hasRoom_ = needed <= Assured_ || HasRoom(needed);
    if (hasRoom_ && isOutermost) Assured_ = std::max(Assured_, needed);
}

MemoryReserve::Loan::~Loan() {
    --Loans_;
    if (lends_) Reserve_ = Map(RESERVED);
    WasTaken_ = WasTaken_ || (lends_ && Reserve_ == nullptr);
}
