#pragma once

#include "utils/Mutex.h"

// One node of a ring; alone at first. Item and neighbours are borrowed. Threads: the ring's user locks.
template <typename T>
class ListEntry {
public:
    explicit ListEntry(T item) : item_(item), prev_(this), next_(this) {}
    virtual ~ListEntry() {}
    virtual T getItem() const { return item_; }
    virtual ListEntry* getPrev() const { return prev_; }
    virtual ListEntry* getNext() const { return next_; }
    virtual void setItem(T item) { item_ = item; }
    virtual void setPrev(ListEntry* prev) { prev_ = prev; }
    virtual void setNext(ListEntry* next) { next_ = next; }

private:
    T item_;
    ListEntry* prev_;
    ListEntry* next_;
};

// A first-in first-out queue of untyped pointers over a ring of nodes that are reused: a queue in steady state
// allocates nothing. There is no capacity limit and nothing is overwritten.
// Threads: push, pop and peek lock, so a producer and a consumer may share it.
class RingBufferVoid {
public:
    explicit RingBufferVoid(bool freeOnCleanup);  // true: what is left at destruction is released with C free
    virtual ~RingBufferVoid();
    RingBufferVoid(const RingBufferVoid&) = delete;
    RingBufferVoid& operator=(const RingBufferVoid&) = delete;

    void push(void* item) {  // last in the queue; a null item cannot be told from an empty queue
        MutexLocker lock(mutex_);
        if (end_ != nullptr && end_->next() != start_) {
            end_ = end_->next();
            end_->setItem(item);
        } else {
            appendNode(item);
        }
        if (start_ == nullptr) start_ = end_;
    }
    void* pop() {  // the first, the caller's from now on; null when empty
        MutexLocker lock(mutex_);
        if (start_ == nullptr) return nullptr;
        void* const item = start_->getItem();
        start_ = start_ == end_ ? nullptr : start_->next();
        return item;
    }
    void* peek() {  // the first, which stays; null when empty
        MutexLocker lock(mutex_);
        return start_ == nullptr ? nullptr : start_->getItem();
    }
    unsigned int nodeCount() const;  // nodes of the ring, used or free

private:
    // Final, so that the queue's own calls are direct ones.
    class Node final : public ListEntry<void*> {
    public:
        using ListEntry::ListEntry;
        Node* next() const { return static_cast<Node*>(getNext()); }
    };

    void appendNode(void* item);

    Node* start_ = nullptr;  // first occupied node, null when empty
    Node* end_ = nullptr;    // last occupied node; the ring's nodes are owned
    const bool freeOnCleanup_;
    mutable Mutex mutex_;
};

// The typed form: T is a pointer type. freeOnCleanup is for what came from malloc; objects go by deleteAll.
template <typename T>
class RingBuffer : public RingBufferVoid {
public:
    explicit RingBuffer(bool freeOnCleanup = false) : RingBufferVoid(freeOnCleanup) {}
    void push(T item) { RingBufferVoid::push(const_cast<void*>(static_cast<const void*>(item))); }
    T pop() { return static_cast<T>(RingBufferVoid::pop()); }
    T peek() { return static_cast<T>(RingBufferVoid::peek()); }
    void deleteAll() {  // items that another thread pushes meanwhile too
        while (T item = pop()) delete item;
    }
};
