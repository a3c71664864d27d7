#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>

// Bytes that grow without a bound, and so are the ones to be refused memory some day. That is no end of the program:
// from then on nothing more is taken, what is there stays, and the owner asks.
class RefusableBytes {
public:
    RefusableBytes() = default;
    RefusableBytes(const RefusableBytes&) = delete;
    RefusableBytes& operator=(const RefusableBytes&) = delete;
    ~RefusableBytes() { free(bytes_); }

    // Room for so many bytes more, to be filled before the next call; null when it is refused.
    void* extend(size_t length) {
        if (length > room_ - length_ && !grow(length)) return nullptr;
        length_ += length;
        return bytes_ + length_ - length;
    }
    void append(const void* bytes, size_t length) {
        if (void* const room = extend(length)) memcpy(room, bytes, length);
    }
    void cutTo(size_t length) { length_ = length; }  // at most the length so far
    void clear();                                    // gives the memory back; it may be asked for again

    void swap(RefusableBytes& other);

    char* data() { return bytes_; }  // until the next append; null before the first
    const char* data() const { return bytes_; }
    size_t length() const { return length_; }
    size_t room() const { return room_; }             // bytes of memory that it takes
    size_t spare() const { return room_ - length_; }  // of them, for what comes
    bool isRefused() const { return isRefused_; }
    void refuse() { isRefused_ = true; }  // for a part that could not even be made

private:
    bool grow(size_t more);

    char* bytes_ = nullptr;  // owned
    size_t length_ = 0;
    size_t room_ = 0;
    bool isRefused_ = false;
};
