#include "utils/RingBuffer.h"

#include <cstdlib>

RingBufferVoid::RingBufferVoid(bool freeOnCleanup) : freeOnCleanup_(freeOnCleanup) {}

RingBufferVoid::~RingBufferVoid() {
    if (freeOnCleanup_) {
        while (start_ != nullptr) free(pop());
    }
    if (end_ == nullptr) return;
    end_->getPrev()->setNext(nullptr);  // the ring is opened in front of end_
    while (end_ != nullptr) {
        Node* const next = end_->getNext();
        delete end_;
        end_ = next;
    }
}

void RingBufferVoid::push(void* item) {
    MutexLocker lock(mutex_);
    if (end_ != nullptr && end_->getNext() != start_) {
        end_ = end_->getNext();
        end_->setItem(item);
    } else {
        appendNode(item);
    }
    if (start_ == nullptr) start_ = end_;
}

// A node between end_ and its successor; it becomes end_.
void RingBufferVoid::appendNode(void* item) {
    Node* const node = new Node(item);
    if (end_ != nullptr) {
        node->setPrev(end_);
        node->setNext(end_->getNext());
        node->getNext()->setPrev(node);
        end_->setNext(node);
    }
    end_ = node;
}

void* RingBufferVoid::pop() {
    MutexLocker lock(mutex_);
    if (start_ == nullptr) return nullptr;
    void* const item = start_->getItem();
    start_ = start_ == end_ ? nullptr : start_->getNext();
    return item;
}

void* RingBufferVoid::peek() {
    MutexLocker lock(mutex_);
    return start_ == nullptr ? nullptr : start_->getItem();
}

unsigned int RingBufferVoid::nodeCount() const {
    MutexLocker lock(mutex_);
    if (end_ == nullptr) return 0;
    unsigned int count = 1;
    for (const Node* node = end_->getNext(); node != end_; node = node->getNext()) ++count;
    return count;
}
