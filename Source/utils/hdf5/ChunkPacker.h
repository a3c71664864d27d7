#pragma once

#include "utils/RefusableBytes.h"

// Turns chunks of doubles into what the filters of their data sets, shuffle and deflate, make of them. What was the
// same a few chunks ago is not made again: a log may repeat arrays of any size with entries of a few bytes.
class ChunkPacker {
public:
    // Takes the numbers, which are empty then. The bytes are the packer's, until the next call; none without memory.
    const RefusableBytes& pack(RefusableBytes& numbers);

private:
    static const size_t REMEMBERED = 8;

    struct Chunk {
        bool isOf(const RefusableBytes& numbers) const;
        void pack(RefusableBytes& shuffled);

        RefusableBytes numbers_;
        RefusableBytes packed_;
    };

    Chunk chunks_[REMEMBERED];
    size_t made_ = 0;
    RefusableBytes shuffled_;
};
