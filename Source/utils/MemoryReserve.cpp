#include "utils/MemoryReserve.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <new>

static const size_t RESERVED = 16777216;   // bytes; what the array libraries need to finish their files
static const size_t LEAST_ROOM = 4194304;  // bytes without which no library is called
static const int FAILURE_STATUS = 1;

void* MemoryReserve::reserve_ = nullptr;
bool MemoryReserve::wasTaken_ = false;
int MemoryReserve::loans_ = 0;
size_t MemoryReserve::assured_ = 0;
Str MemoryReserve::task_;

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
    if (reserve_ == nullptr) reserve_ = Map(RESERVED);
    if (reserve_ != nullptr) wasTaken_ = false;
    return reserve_ != nullptr;
}

void MemoryReserve::Take() {
    if (reserve_ != nullptr) {
        munmap(reserve_, RESERVED);
        reserve_ = nullptr;
        wasTaken_ = true;
        return;
    }
    fflush(nullptr);
    fprintf(stderr, "No memory is left in the middle of %s; what was written stays\n", task_.cStr());
    _exit(FAILURE_STATUS);
}

MemoryReserve::Loan::Loan(size_t bytes) : lends_(reserve_ != nullptr) {
    const size_t needed = std::max(bytes, LEAST_ROOM);
    const bool isOutermost = loans_++ == 0;
    if (lends_) munmap(reserve_, RESERVED);
    reserve_ = nullptr;
    if (isOutermost) assured_ = lends_ ? RESERVED : 0;
    hasRoom_ = needed <= assured_ || HasRoom(needed);
    if (hasRoom_ && isOutermost) assured_ = std::max(assured_, needed);
}

MemoryReserve::Loan::~Loan() {
    --loans_;
    if (lends_) reserve_ = Map(RESERVED);
    wasTaken_ = wasTaken_ || (lends_ && reserve_ == nullptr);
}
