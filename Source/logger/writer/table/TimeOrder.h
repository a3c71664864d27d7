#pragma once

#include "utils/Timestamp.h"

// An item's place in a TimeOrder. Derive T from it; T::time() orders the items and does not change.
template <typename T>
struct TimeOrdered {
    T* previous_ = nullptr;  // in time
    T* next_ = nullptr;
    T* parent_ = nullptr;  // in the tree
    T* earlier_ = nullptr;
    T* later_ = nullptr;

    void summarize() {}  // T may note something of its tree: called when what is below it has changed
};

// Borrowed items in the order of their times: a list, and beside it a search tree that moves what was used last to its
// root (D. Sleator, R. Tarjan: Self-adjusting binary search trees, 1985). Any use costs the logarithm of the number of
// items at most, over all uses, and next to nothing beside the place of the last one, be it at the newest end or, where
// times run backwards, at the oldest.
template <typename T>
class TimeOrder {
public:
    bool isEmpty() const { return first_ == nullptr; }
    T* first() const { return first_; }  // null when empty, as the last is
    T* last() const { return last_; }

    // The last item at or before the time; null when all come later.
    T* lastUpTo(const Timestamp& time) {
        if (last_ != nullptr && last_->time() <= time) return last_;
        T* found = nullptr;
        T* deepest = nullptr;
        for (T* item = root_; item != nullptr;) {
            deepest = item;
            const bool isLater = time < item->time();
            if (!isLater) found = item;
            item = isLater ? item->earlier_ : item->later_;
        }
        if (deepest != nullptr) raise(deepest);
        return found;
    }

    // Behind an item of the order, or, when that is null, in front of all.
    void insertAfter(T* previous, T* item) {
        item->previous_ = previous;
        item->next_ = previous == nullptr ? first_ : previous->next_;
        (item->previous_ == nullptr ? first_ : item->previous_->next_) = item;
        (item->next_ == nullptr ? last_ : item->next_->previous_) = item;
        // Of two neighbours in time one is below the other: the lower one has room on the side of the other.
        if (previous != nullptr && previous->later_ == nullptr) {
            item->parent_ = previous;
            previous->later_ = item;
        } else if (item->next_ != nullptr) {
            item->parent_ = item->next_;
            item->next_->earlier_ = item;
        }
        raise(item);
    }

    // Takes the first item, which there is, out of the order.
    void dropFirst() {
        raise(first_);
        root_ = first_->later_;
        first_ = first_->next_;
        (first_ == nullptr ? last_ : first_->previous_) = nullptr;
        if (root_ != nullptr) root_->parent_ = nullptr;
    }

    // Makes the item the root of the tree.
    void raise(T* item) {
        while (T* const parent = item->parent_) {
            if (T* const grandparent = parent->parent_) {
                const bool isInLine = (grandparent->later_ == parent) == (parent->later_ == item);
                rotate(isInLine ? parent : item);
            }
            rotate(item);
        }
        item->summarize();
        root_ = item;
    }

private:
    // Exchanges the item and its parent, which becomes its child.
    void rotate(T* item) {
        T* const parent = item->parent_;
        T* const above = parent->parent_;
        const bool isLater = parent->later_ == item;
        T*& between = isLater ? item->earlier_ : item->later_;
        (isLater ? parent->later_ : parent->earlier_) = between;
        if (between != nullptr) between->parent_ = parent;
        between = parent;
        parent->parent_ = item;
        item->parent_ = above;
        if (above != nullptr) (above->later_ == parent ? above->later_ : above->earlier_) = item;
        parent->summarize();
    }

    T* root_ = nullptr;
    T* first_ = nullptr;
    T* last_ = nullptr;
};
