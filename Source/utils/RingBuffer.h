#pragma once

#include "utils/Mutex.h"

// One node of a ring.
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

    void push(void* item);
    void* pop();                     // null when empty
    void* peek();                    // null when empty
    unsigned int nodeCount() const;  // nodes of the ring, used or free

private:
    typedef ListEntry<void*> Node;

    void appendNode(void* item);

    Node* start_ = nullptr;  // first occupied node, null when empty
    Node* end_ = nullptr;    // last occupied node; the ring's nodes are owned
    const bool freeOnCleanup_;
    mutable Mutex mutex_;
};

// The typed form: T is a pointer type.
template <typename T>
class RingBuffer : public RingBufferVoid {
public:
    explicit RingBuffer(bool freeOnCleanup = false) : RingBufferVoid(freeOnCleanup) {}
    void push(T item) { RingBufferVoid::push(const_cast<void*>(static_cast<const void*>(item))); }
    T pop() { return static_cast<T>(RingBufferVoid::pop()); }
    T peek() { return static_cast<T>(RingBufferVoid::peek()); }
    void deleteAll() {
        while (T item = pop()) delete item;
    }
};
