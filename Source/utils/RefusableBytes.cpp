#include "utils/RefusableBytes.h"

#include <algorithm>
#include <utility>

static const size_t FIRST_ROOM = 256;

// Not by operator new, which does not return without memory. A large block grows in its place.
bool RefusableBytes::grow(size_t more) {
    if (isRefused_) return false;
    const size_t room = std::max({FIRST_ROOM, room_ + room_ / 2, length_ + more});
    char* const bytes = static_cast<char*>(realloc(bytes_, room));
    isRefused_ = bytes == nullptr;
    if (isRefused_) return false;
    bytes_ = bytes;
    room_ = room;
    return true;
}

void RefusableBytes::swap(RefusableBytes& other) {
    std::swap(bytes_, other.bytes_);
    std::swap(length_, other.length_);
    std::swap(room_, other.room_);
    std::swap(isRefused_, other.isRefused_);
}

void RefusableBytes::clear() {
    free(bytes_);
    bytes_ = nullptr;
    length_ = room_ = 0;
    isRefused_ = false;
}
