#pragma once

#include <cstddef>
#include <cstring>

#include "io/CompactCode.h"

// Bytes of the log at hand, decoded where they lie. Each operation passes over what it takes; where the bytes end
// before that, it is false or null and passes over nothing. The last bytes may be refused although a code is whole.
class ByteCursor {
public:
    ByteCursor() = default;
    ByteCursor(const char* begin, const char* end) : at_(begin), end_(end) {}

    const char* at() const { return at_; }  // the next byte

    bool takeUShortCompact(unsigned short& value) {
        if (!has(CompactCode::LONGEST_USHORT)) return false;
        value = CompactCode::UShortValue(at_);
        at_ += CompactCode::UShortLength(*at_);
        return true;
    }
    bool takeLongLongCompact(long long& value) {
        if (!has(CompactCode::LONGEST_LONG_LONG)) return false;
        const size_t length = CompactCode::LongLongLength(*at_);
        value = CompactCode::LongLongValue(at_, length);
        at_ += length;
        return true;
    }
    bool takeUShort(unsigned short& value) {
        if (!has(sizeof value)) return false;
        memcpy(&value, at_, sizeof value);
        at_ += sizeof value;
        return true;
    }
    // The next n bytes, in their place. A stream, which has none, fills the room that it is given instead.
    const char* take(size_t n, char* /*room*/ = nullptr) {
        if (!has(n)) return nullptr;
        at_ += n;
        return at_ - n;
    }

private:
    bool has(size_t n) const { return static_cast<size_t>(end_ - at_) >= n; }

    const char* at_ = nullptr;   // borrowed
    const char* end_ = nullptr;  // borrowed
};
