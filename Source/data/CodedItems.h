#pragma once

#include <atomic>
#include <bitset>
#include <memory>

#include "data/CodedStr.h"
#include "data/DataAccess.h"
#include "data/ElementURI.h"
#include "utils/FastMap.h"
#include "utils/FlexArray.h"
#include "utils/Mutex.h"

// Whether a record that is read under an item's code is about that item.
inline bool Agrees(const CodedStr& item, const CodedStr& record) {
    return item == record;
}
template <typename T>
bool Agrees(const T& item, const T& record) {
    return item.agreesWith(record);
}

// A log's items of one kind that have a code there, and what the kinds have in common. T has getCode and setCode.
// Ownership: what was given or made is owned until the store is cleared; universals and names of static life are not.
// Threads: the caller holds the kind's lock.
template <typename T>
struct CodedItems {
    static constexpr unsigned short NO_CODE = ElementURI::NO_CODE;  // codes run from 0 to NO_CODE - 1
    static constexpr unsigned int CAPACITY = 32;
    static constexpr unsigned int MAX_CAPACITY = 16384;

    // kind: its word in messages. retoldCount and changes: of all kinds; borrowed.
    CodedItems(const char* kind, std::atomic<unsigned int>& retoldCount, std::atomic<unsigned int>& changes)
        : kind_(kind), retoldCount_(retoldCount), changes_(changes) {}
    CodedItems(const CodedItems&) = delete;
    CodedItems& operator=(const CodedItems&) = delete;

    const char* const kind_;
    mutable Mutex mutex_;
    FlexArray<T*> store_{true};  // owns what the log was given or made
    FastMap<Str, T*> byText_;
    FlexArray<T*> byCode_{false, CAPACITY, MAX_CAPACITY};
    FlexArray<T*> list_;       // in the order of registration
    FlexArray<T*> codedHere_;  // those whose code was not read from a log
    unsigned short nextCode_ = 0;
    unsigned int count_ = 0;  // items that have a code
    // By code: what the log has last said of it, where another item is registered; owned.
    FlexArray<T*> retold_{true, CAPACITY, MAX_CAPACITY};
    std::atomic<unsigned int>& retoldCount_;
    std::atomic<unsigned int>& changes_;  // of what the codes stand for
    std::bitset<NO_CODE> reported_ = {};  // codes whose contradiction this log has been reported for

    // Takes over an item read from a log, to stand under its own code. The result is the registered item: this one, or
    // the one that is known by that text or code already; null when the code is out of range or another item's.
    // An item that is not what is registered under its code is kept as what the log says now.
    T* add(T* item, const Str& text) {
        std::unique_ptr<T> given(item);
        const unsigned short code = item->getCode();
        if (code >= NO_CODE) return nullptr;
        T* const holder = byCode_.at(code);
        if (holder != nullptr && Agrees(*holder, *item)) return confirm(holder, code);
        if (holder != nullptr) {
            retell(code, given.release());
            return nullptr;
        }

        T* known = byText_.get(text);
        if (known == nullptr) {
            item->setCode(NO_CODE);
            byText_.put(text, item, false);
            list_.push(item);
            known = own(given.release());
        } else {
            if (codedHere_.pop(known) != nullptr) vacate(*known);
            if (known->getCode() >= NO_CODE) remember(known);
            if (!Agrees(*known, *given)) retell(code, given.release());
        }
        return place(known, code);
    }

    // The next free code; false when the item has one already or all are taken.
    bool giveNextCode(T* item) {
        if (item->getCode() < NO_CODE || nextCode_ >= NO_CODE) return false;
        remember(item);
        codedHere_.push(place(item, nextCode_));
        return true;
    }

    // From here on the store deletes it.
    T* own(T* item) {
        store_.push(item);
        return item;
    }

    // Puts it at the end of the list unless it is there.
    void remember(T* item) {
        if (list_.find(item) < 0) list_.push(item);
    }

    // Nothing is known of it any more, by text or by code; an owned one lives on.
    void remove(T* item, const Str& text) {
        byText_.pop(text);
        list_.pop(item);
        codedHere_.pop(item);
        vacate(*item);
    }

    // What the log has last said of the code is of another item than the one registered.
    bool isRetold(unsigned short code) const { return retold_.at(code) != nullptr; }

    // A log is read from its start: nothing has been said otherwise yet.
    void forgetRetold() {
        reported_.reset();
        for (int code = retold_.getMaxIndex(); code >= retold_.getMinIndex(); --code) {
            if (retold_.at(static_cast<unsigned int>(code)) != nullptr) --retoldCount_;
        }
        retold_.clear();
        ++changes_;
    }

    // Everything is forgotten and every item loses its code; what is owned lives on.
    void forget() {
        forgetRetold();
        for (int code = byCode_.getMaxIndex(); code >= 0; --code) {
            if (byCode_.at(code) != nullptr) byCode_.at(code)->setCode(NO_CODE);
        }
        byText_.clear();
        byCode_.clear();
        list_.clear();
        codedHere_.clear();
        nextCode_ = 0;
        count_ = 0;
    }

    // Only codes read from a log stay, and only items that have one stay in the list.
    void takeBackCodesNotRead() {
        while (!codedHere_.isEmpty()) vacate(*codedHere_.pop(-1));
        while (nextCode_ > 0 && byCode_.at(nextCode_ - 1) == nullptr) --nextCode_;
        for (int i = list_.getMaxIndex(); i >= 0; --i) {
            if (list_.at(i)->getCode() >= NO_CODE) list_.pop(i);
        }
    }

    // Takes the item's code from it, if it has one; no other item gets it by that.
    void vacate(T& item) {
        if (item.getCode() >= NO_CODE) return;
        byCode_.set(item.getCode(), nullptr);
        item.setCode(NO_CODE);
        --count_;
        ++changes_;
    }

private:
    // Of two codes that a log gave to one name, the one read last is shown.
    T* confirm(T* item, unsigned short code) {
        if (isRetold(code)) retell(code, nullptr);
        codedHere_.pop(item);
        if (item->getCode() != code) item->setCode(code);
        return item;
    }

    void retell(unsigned short code, T* told) {
        if (isRetold(code)) --retoldCount_;
        if (told != nullptr) ++retoldCount_;
        delete retold_.at(code);
        retold_.set(code, told);
        ++changes_;
    }

    T* place(T* item, unsigned short code) {
        if (item->getCode() >= NO_CODE) ++count_;
        item->setCode(code);
        byCode_.set(code, item);
        ++changes_;
        if (nextCode_ <= code) nextCode_ = static_cast<unsigned short>(code + 1);
        return item;
    }
};
