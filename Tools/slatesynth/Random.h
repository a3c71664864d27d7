#pragma once

#include <cstdint>

// Numbers that look random and depend on the seed alone, the same on every machine.
// Source: splitmix64, Steele, Lea and Flood, "Fast splittable pseudorandom number generators", OOPSLA 2014.
class Random {
public:
    explicit Random(uint64_t seed) : state_(seed) {}

    uint64_t next() {  // all 64 bits alike
        uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    double uniform() { return static_cast<double>(next() >> 11) / 9007199254740992.0; }  // 0 <= x < 1
    uint64_t below(uint64_t bound) { return static_cast<uint64_t>(uniform() * static_cast<double>(bound)); }  // < 2^53
    double between(double low, double high) { return low + (high - low) * uniform(); }  // low included
    // About normal: mean 0, deviation 1, never beyond 3.5. The sum of the four 16-bit parts of one draw.
    double noise() {
        const uint64_t z = next();
        const uint64_t sum = (z & 0xFFFF) + ((z >> 16) & 0xFFFF) + ((z >> 32) & 0xFFFF) + (z >> 48);
        return (static_cast<double>(sum) - 131070.0) / 37837.23;
    }

private:
    uint64_t state_;
};
