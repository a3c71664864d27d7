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
        Node* const next = end_->next();
        delete end_;
        end_ = next;
    }
}

// A node between end_ and its successor; it becomes end_.
void RingBufferVoid::appendNode(void* item) {
    Node* const node = new Node(item);
    if (end_ != nullptr) {
        node->setPrev(end_);
        node->setNext(end_->next());
        node->getNext()->setPrev(node);
        end_->setNext(node);
    }
    end_ = node;
}

unsigned int RingBufferVoid::nodeCount() const {
    MutexLocker lock(mutex_);
    if (end_ == nullptr) return 0;
    unsigned int count = 1;
    for (const Node* node = end_->next(); node != end_; node = node->next()) ++count;
    return count;
}
