#include "utils/hdf5/ChunkPacker.h"

#include <cstdint>

#include "utils/hdf5/Deflate.h"

const RefusableBytes& ChunkPacker::pack(RefusableBytes& numbers) {
    for (const Chunk& known : chunks_) {
        if (!known.isOf(numbers)) continue;
        numbers.clear();
        return known.packed_;
    }
    Chunk& chunk = chunks_[made_++ % REMEMBERED];
    chunk.numbers_.swap(numbers);
    numbers.clear();
    chunk.pack(shuffled_);
    return chunk.packed_;
}

bool ChunkPacker::Chunk::isOf(const RefusableBytes& numbers) const {
    return numbers_.length() == numbers.length() && memcmp(numbers_.data(), numbers.data(), numbers.length()) == 0;
}

// The bytes of like weight side by side.
static void Shuffle(const char* numbers, size_t count, char* to) {
    for (size_t i = 0; i < count; ++i) {
        uint64_t bits;
        memcpy(&bits, numbers + i * sizeof bits, sizeof bits);
        for (size_t byte = 0; byte < sizeof bits; ++byte) to[byte * count + i] = static_cast<char>(bits >> 8 * byte);
    }
}

void ChunkPacker::Chunk::pack(RefusableBytes& shuffled) {
    const size_t size = numbers_.length();
    const size_t room = Deflate::Bound(size);
    shuffled.cutTo(0);
    packed_.clear();
    void* const to = packed_.extend(room);
    if (to == nullptr || shuffled.extend(size) == nullptr) return packed_.cutTo(0);
    Shuffle(numbers_.data(), size / sizeof(uint64_t), shuffled.data());
    packed_.cutTo(Deflate::Compress(shuffled.data(), size, to, room));
}
