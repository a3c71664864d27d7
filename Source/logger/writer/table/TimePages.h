#pragma once

#include <algorithm>
#include <cstring>

#include "logger/writer/table/PageMemory.h"
#include "logger/writer/table/TimeOrder.h"
#include "utils/Timestamp.h"

// What an item of TimePages begins with: its time, in half the bytes of a Timestamp.
class Timed {
public:
    Timed() = default;
    explicit Timed(const Timestamp& t)
        : seconds_(t.getTimeval().tv_sec), micros_(static_cast<int>(t.getTimeval().tv_usec)) {}
    Timestamp time() const { return Timestamp(timeval{seconds_, micros_}); }
    bool operator==(const Timed& o) const { return seconds_ == o.seconds_ && micros_ == o.micros_; }
    bool operator!=(const Timed& o) const { return !(*this == o); }
    bool operator<(const Timed& o) const {
        return seconds_ != o.seconds_ ? seconds_ < o.seconds_ : micros_ < o.micros_;
    }

private:
    long seconds_ = 0;
    int micros_ = 0;
};

// Plain items in the order of their times, no two of which are equal, in pages of a PageMemory. What is done at either
// end costs next to nothing, in between the logarithm of the number of pages. Item is derived from Timed, goes as its
// bytes and has an Item::PageNote, what is to be known of a page without looking into it; the note's
// summarize(earlier, later) is called when those of the pages below it in the tree have changed.
// Where the memory has lost items they are zeros out of order: a search may miss then, but every operation ends.
template <typename Item>
class TimePages {
public:
    struct Page : TimeOrdered<Page>, PageMemory::Page, Item::PageNote {
        Timestamp time() const { return first_.time(); }
        void summarize() { Item::PageNote::summarize(this->earlier_, this->later_); }
        unsigned int count() const { return end_ - begin_; }

        Timed first_;  // the time of the first item
        unsigned int begin_ = 0;
        unsigned int end_ = 0;
    };
    // Where an item stands, until the next insertion or drop; false: nowhere.
    struct Place {
        explicit operator bool() const { return page_ != nullptr; }

        Page* page_ = nullptr;
        unsigned int index_ = 0;
    };

    explicit TimePages(PageMemory& memory)
        : memory_(memory), capacity_(static_cast<unsigned int>(memory.pageBytes() / sizeof(Item))) {}
    ~TimePages() {
        while (Page* const page = order_.first()) dropPage(page);
    }
    TimePages(const TimePages&) = delete;
    TimePages& operator=(const TimePages&) = delete;

    bool isEmpty() const { return order_.isEmpty(); }
    Place first() const { return {order_.first(), 0}; }
    // The reference is good until PageMemory::RECENT other pages have been used.
    Item& at(Place place) { return items(place.page_)[place.index_]; }

    // The first item after the time; nowhere when there is none.
    Place firstAfter(const Timed& time) {
        const Place last = lastUpTo(time);
        return last ? next(last) : first();
    }
    Place next(Place place) const {
        if (++place.index_ < place.page_->count()) return place;
        return {place.page_->next_, 0};
    }
    Place previous(Place place) const {
        if (place.index_ > 0) return {place.page_, place.index_ - 1};
        return lastOf(place.page_->previous_);
    }
    // The last item of the page; nowhere for null.
    Place lastOf(Page* page) const { return {page, page == nullptr ? 0 : page->count() - 1}; }

    // The last item at or before the time; nowhere when all come later.
    Place lastUpTo(const Timed& time) {
        Page* const page = order_.lastUpTo(time.time());
        if (page == nullptr) return {};
        const Item* const begin = items(page);
        const Item* const end = begin + page->count();
        if (!(time < end[-1])) return lastOf(page);
        return {page, static_cast<unsigned int>(std::upper_bound(begin + 1, end, time) - begin) - 1};
    }

    // Behind an item, or, when that is nowhere, in front of all.
    Place insertAfter(Place previous, const Item& item) {
        const Place place = previous ? Place{previous.page_, previous.index_ + 1} : first();
        return place.page_ == nullptr ? insertAlone(nullptr, 0, item) : insertBefore(place, item);
    }

    void dropFirst() {
        Page* const page = order_.first();
        ++page->begin_;
        if (page->count() == 0) {
            dropPage(page);
        } else {
            page->first_ = *items(page);
        }
    }

    void raise(Page* page) { order_.raise(page); }

private:
    Item* items(Page* page) { return static_cast<Item*>(memory_.use(*page)) + page->begin_; }

    Place insertBefore(Place place, const Item& item) {
        Page* const page = place.page_;
        if (place.index_ == 0 && page->begin_ > 0) return openAtFront(page, item);
        if (page->end_ < capacity_) return openAt(place, item);
        if (page->begin_ > 0) {
            moveToFront(page);
            return openAt(place, item);
        }
        if (place.index_ == 0) return insertAlone(page->previous_, capacity_, item);
        if (place.index_ < capacity_) return insertBefore(split(place), item);
        const bool hasRoom = page->next_ != nullptr && page->next_->count() < capacity_;
        return hasRoom ? insertBefore({page->next_, 0}, item) : insertAlone(page, 0, item);
    }
    // In a page of its own behind another one, which is to grow away from the index.
    Place insertAlone(Page* previous, unsigned int index, const Item& item) {
        Page* const page = new Page;
        page->begin_ = page->end_ = index;
        page->first_ = item;
        order_.insertAfter(previous, page);
        return index > 0 ? openAtFront(page, item) : openAt({page, 0}, item);
    }
    Place openAtFront(Page* page, const Item& item) {
        --page->begin_;
        *items(page) = item;
        page->first_ = item;
        return {page, 0};
    }
    Place openAt(Place place, const Item& item) {
        Item* const at = items(place.page_) + place.index_;
        std::copy_backward(at, at + (place.page_->count() - place.index_),
                           at + (place.page_->count() - place.index_) + 1);
        *at = item;
        ++place.page_->end_;
        if (place.index_ == 0) place.page_->first_ = item;
        return place;
    }
    void moveToFront(Page* page) {
        Item* const begin = items(page);
        std::copy(begin, begin + page->count(), begin - page->begin_);
        page->end_ -= page->begin_;
        page->begin_ = 0;
    }
    // Gives the upper half of a full page one of its own; the result is where the place is now.
    Place split(Place place) {
        Page* const page = place.page_;
        Page* const upper = new Page;
        const unsigned int half = capacity_ / 2;
        const Item* const from = items(page) + half;
        upper->end_ = page->end_ - half;
        upper->first_ = *from;
        static_cast<typename Item::PageNote&>(*upper) = *page;
        std::copy(from, from + upper->end_, items(upper));
        page->end_ = half;
        order_.insertAfter(page, upper);
        return place.index_ <= half ? place : Place{upper, place.index_ - half};
    }
    void dropPage(Page* page) {
        order_.dropFirst();
        memory_.drop(*page);
        delete page;
    }

    PageMemory& memory_;           // borrowed
    const unsigned int capacity_;  // items of a page, at least 2
    TimeOrder<Page> order_;        // owned
};
