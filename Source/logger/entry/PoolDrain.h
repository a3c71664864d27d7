#pragma once

#include "utils/RecyclingPool.h"

// Gives the free blocks of a pool back when the process ends; an entry deleted after that is freed at once.
class PoolDrain {
public:
    explicit PoolDrain(RecyclingPool& pool) : pool_(pool) {}
    ~PoolDrain() { pool_.drain(); }
    PoolDrain(const PoolDrain&) = delete;
    PoolDrain& operator=(const PoolDrain&) = delete;

private:
    RecyclingPool& pool_;  // never destroyed
};
