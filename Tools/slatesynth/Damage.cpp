#include "Damage.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "Random.h"

namespace {

const uint64_t UNTOUCHED_START = 8;  // bytes of the version record
const size_t MAX_BYTES = 16;         // that one damage adds or takes
const size_t BLOCK = 1 << 16;

enum Kind { OVERWRITE = 0, INSERT = 1, DELETE = 2 };
const char* const KIND_TEXTS[] = {"overwrote", "inserted", "deleted"};

struct FileCloser {
    void operator()(FILE* file) const { fclose(file); }
};
typedef std::unique_ptr<FILE, FileCloser> File;

bool Fail(const Str& path) {
    fprintf(stderr, "slatesynth: %s: %s\n", path.cStr(), strerror(errno));
    return false;
}

bool CopyBytes(FILE* from, FILE* to, uint64_t count) {
    char block[BLOCK];
    while (count > 0) {
        const size_t n = fread(block, 1, static_cast<size_t>(std::min<uint64_t>(count, BLOCK)), from);
        if (n == 0 || fwrite(block, 1, n, to) != n) return false;
        count -= n;
    }
    return true;
}

// Damages the copy where both files stand now; the number of bytes of the source that this used up.
uint64_t DamageHere(FILE* from, FILE* to, uint64_t at, Random& random) {
    const Kind kind = static_cast<Kind>(random.below(3));
    const size_t count = 1 + random.below(MAX_BYTES);
    if (kind != DELETE) {
        for (size_t i = 0; i < count; ++i) fputc(static_cast<int>(random.below(256)), to);
    }
    printf("  %s %zu bytes at 0x%llX\n", KIND_TEXTS[kind], count, static_cast<unsigned long long>(at));
    if (kind == INSERT) return 0;
    char lost[MAX_BYTES];
    return fread(lost, 1, count, from);
}

bool CopyDamaged(FILE* from, FILE* to, uint64_t size, unsigned int places, Random& random) {
    const std::unique_ptr<uint64_t[]> positions(new uint64_t[places]);
    const uint64_t room = size > UNTOUCHED_START ? size - UNTOUCHED_START : 0;
    std::generate_n(positions.get(), places, [&] { return UNTOUCHED_START + random.below(room + 1); });
    std::sort(positions.get(), positions.get() + places);
    uint64_t at = 0;  // of the source
    for (unsigned int i = 0; i < places; ++i) {
        const uint64_t position = std::min(std::max(positions[i], at), size);
        if (!CopyBytes(from, to, position - at)) return false;
        at = position + DamageHere(from, to, position, random);
    }
    return CopyBytes(from, to, size - at) && fflush(to) == 0 && ferror(to) == 0;
}

}  // namespace

bool DamageFile(const Str& path, unsigned int places, uint64_t seed) {
    const Str copyPath = path + ".damaging";
    const File from(fopen(path.cStr(), "rb"));
    if (from == nullptr || fseeko(from.get(), 0, SEEK_END) != 0) return Fail(path);
    const uint64_t size = static_cast<uint64_t>(ftello(from.get()));
    rewind(from.get());
    const File to(fopen(copyPath.cStr(), "wb"));
    if (to == nullptr) return Fail(copyPath);
    Random random(seed);
    if (!CopyDamaged(from.get(), to.get(), size, places, random) || rename(copyPath.cStr(), path.cStr()) != 0) {
        Fail(copyPath);
        remove(copyPath.cStr());
        return false;
    }
    return true;
}
