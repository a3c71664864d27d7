#include "utils/FlexArray.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

FlexArrayBase::FlexArrayBase(bool deleteOnCleanup, unsigned int initialCapacity, unsigned int maxCapacity)
    : initialCapacity_(std::min(initialCapacity, maxCapacity)),
      deleteOnCleanup_(deleteOnCleanup),
      maxCapacity_(maxCapacity),
      minIndex_(static_cast<int>(maxCapacity)) {}

FlexArrayBase::~FlexArrayBase() {
    clear();
    delete[] array_;
}

void FlexArrayBase::freeItem(void* item) {
    free(item);
}

void FlexArrayBase::setArraySize(unsigned int size) {
    setArraySizeBase(size);
}

void FlexArrayBase::setArraySizeBase(unsigned int size) {
    void** const array = size == 0 ? nullptr : new void*[size]();
    std::copy_n(array_, std::min(size, size_), array);
    delete[] array_;
    array_ = array;
    size_ = size;
}

void FlexArrayBase::clear() {
    for (; maxIndex_ >= minIndex_; --maxIndex_) {
        void*& slot = array_[maxIndex_];
        if (deleteOnCleanup_) freeItem(slot);
        slot = nullptr;
    }
    minIndex_ = static_cast<int>(maxCapacity_);
    maxIndex_ = -1;
}

void FlexArrayBase::set(unsigned int index, void* item) {
    if (resolveIndex(index) >= 0) array_[index] = item;
}

int FlexArrayBase::find(const void* item) const {
    for (int i = minIndex_; i <= maxIndex_; ++i) {
        if (array_[i] == item) return i;
    }
    return -1;
}

// At the ceiling the item in the last slot has no place to go and is lost.
void FlexArrayBase::insert(unsigned int index, void* item) {
    if (static_cast<int>(index) >= 0 && static_cast<int>(index) <= maxIndex_) {
        const int last = maxIndex_;
        const int kept = resolveIndex(static_cast<unsigned int>(last + 1)) < 0 ? last : last + 1;
        std::copy_backward(array_ + index, array_ + kept, array_ + kept + 1);
    }
    set(index, item);
}

void* FlexArrayBase::peek(int index) {
    const int resolved = getIndex(index);
    return resolved < 0 ? nullptr : array_[resolved];
}

void* FlexArrayBase::pop(int index) {
    const int resolved = getIndex(index);
    if (resolved < 0) return nullptr;
    void* const item = array_[resolved];
    std::copy(array_ + resolved + 1, array_ + maxIndex_ + 1, array_ + resolved);
    array_[maxIndex_--] = nullptr;
    return item;
}

int FlexArrayBase::getIndex(int index) {
    if (index < 0) index += maxIndex_ + 1;
    return index < 0 ? -1 : resolveIndex(static_cast<unsigned int>(index));
}

int FlexArrayBase::resolveIndex(unsigned int index) {
    if (index >= size_) {
        size_t capacity = std::max(size_, 1u);
        while (capacity <= index && 2 * capacity <= maxCapacity_) capacity *= 2;
        if (capacity <= index || capacity > maxCapacity_) return -1;
        setArraySize(static_cast<unsigned int>(capacity));
    }
    const int resolved = static_cast<int>(index);
    minIndex_ = std::min(minIndex_, resolved);
    maxIndex_ = std::max(maxIndex_, resolved);
    return resolved;
}
