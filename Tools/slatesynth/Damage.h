#pragma once

#include <cstdint>

#include "utils/Str.h"

// Overwrites, inserts or deletes 1 to 16 bytes at each of so many places of a finished file, the same ones for the same
// seed, and says on standard output what it did. The version record at the start stays whole.
// False, with the reason on standard error, when the file cannot be read or written.
bool DamageFile(const Str& path, unsigned int places, uint64_t seed);
