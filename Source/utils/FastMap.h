#pragma once

#include "utils/FlexArray.h"

// One key, a copy of the one it was put with, and its item in a FastMap.
template <typename K, typename V>
class MapEntry {
public:
    MapEntry(const K& key, V item, bool deleteOnCleanup) : key_(key), item_(item), deleteOnCleanup_(deleteOnCleanup) {}
    virtual ~MapEntry() {
        if (deleteOnCleanup_) delete item_;
    }
    MapEntry(const MapEntry&) = delete;
    MapEntry& operator=(const MapEntry&) = delete;

    virtual const K& getKey() const { return key_; }  // while the entry lives
    virtual V getItem() const { return item_; }
    virtual void setItem(V item) { item_ = item; }  // the item before is not deleted
    void disown() { deleteOnCleanup_ = false; }     // the item outlives the entry

private:
    K key_;
    V item_;  // owned when deleteOnCleanup_
    bool deleteOnCleanup_;
};

// A map over a sorted array with binary search: K has compare(const K&), V is a pointer type.
// It holds at most 16384 entries; one more pushes the entry with the highest key out, silently. The item of that entry
// is not deleted: whoever registered it may still hold it.
// Threads: not synchronised; users lock.
template <typename K, typename V>
class FastMap {
public:
    static constexpr unsigned int INITIAL_CAPACITY = 32;
    static constexpr unsigned int MAX_CAPACITY = 16384;

    // allowDups: equal keys may stand in the map, in the order in which they came.
    explicit FastMap(bool allowDups = false) : array_(true, INITIAL_CAPACITY, MAX_CAPACITY), allowDups_(allowDups) {}
    virtual ~FastMap() {}

    // False, with nothing stored, for a key that is present while duplicates are not allowed: the item stays the
    // caller's. deleteOnCleanup: the map owns the item from now on.
    bool put(const K& key, V item, bool deleteOnCleanup);
    V get(const K& key, bool = false) const;  // null when absent; of duplicates any one; the flag has no effect
    V pop(const K& key);                      // taken out, the caller's from now on; null when absent
    V getIndexed(unsigned int index) const;   // in key order; null past the end
    // The entry, null past the end; the map's, and valid until it is taken out. The flag has no effect.
    MapEntry<K, V>* getIndexedEntry(unsigned int index, bool = false) const { return array_.at(index); }
    V popIndexed(unsigned int index);  // as pop, in key order
    // The first key under which the item stands, looked for one by one; defaultKey itself when there is none.
    const K& findKey(V item, const K& defaultKey) const;
    // The index of an equal key, or the one's complement of the place where the key belongs; among first .. last only,
    // where -1 stands for the end.
    int findIndex(const K& key, int first = 0, int last = -1) const;
    unsigned int size() const { return static_cast<unsigned int>(array_.getMaxIndex() + 1); }
    FlexArray<MapEntry<K, V>*>& getArray() { return array_; }  // the entries, which must stay sorted
    void clear(bool = false) { array_.clear(); }               // deletes the items it owns; the flag has no effect

private:
    V takeOut(unsigned int index);

    FlexArray<MapEntry<K, V>*> array_;  // owned entries, ascending by key
    const bool allowDups_;
    V const nullItem_ = nullptr;  // the answer for a missing key
};

template <typename K, typename V>
bool FastMap<K, V>::put(const K& key, V item, bool deleteOnCleanup) {
    int index = findIndex(key);
    if (index >= 0 && !allowDups_) return false;
    if (index < 0) {
        index = ~index;
    } else {
        while (index <= array_.getMaxIndex() && array_.at(static_cast<unsigned int>(index))->getKey().compare(key) == 0)
            ++index;
    }
    if (index == static_cast<int>(MAX_CAPACITY)) return true;
    if (size() == MAX_CAPACITY) takeOut(MAX_CAPACITY - 1);
    array_.insert(static_cast<unsigned int>(index), new MapEntry<K, V>(key, item, deleteOnCleanup));
    return true;
}

template <typename K, typename V>
V FastMap<K, V>::get(const K& key, bool) const {
    const int index = findIndex(key);
    return index < 0 ? nullItem_ : getIndexed(static_cast<unsigned int>(index));
}

template <typename K, typename V>
V FastMap<K, V>::pop(const K& key) {
    const int index = findIndex(key);
    return index < 0 ? nullItem_ : takeOut(static_cast<unsigned int>(index));
}

template <typename K, typename V>
V FastMap<K, V>::getIndexed(unsigned int index) const {
    return index < size() ? array_.at(index)->getItem() : nullItem_;
}

template <typename K, typename V>
V FastMap<K, V>::popIndexed(unsigned int index) {
    return index < size() ? takeOut(index) : nullItem_;
}

// The entry goes, its item stays alive.
template <typename K, typename V>
V FastMap<K, V>::takeOut(unsigned int index) {
    MapEntry<K, V>* const entry = array_.pop(static_cast<int>(index));
    const V item = entry->getItem();
    entry->disown();
    delete entry;
    return item;
}

template <typename K, typename V>
const K& FastMap<K, V>::findKey(V item, const K& defaultKey) const {
    for (unsigned int i = 0; i < size(); ++i) {
        if (array_.at(i)->getItem() == item) return array_.at(i)->getKey();
    }
    return defaultKey;
}

template <typename K, typename V>
int FastMap<K, V>::findIndex(const K& key, int first, int last) const {
    if (last < 0 || last > array_.getMaxIndex()) last = array_.getMaxIndex();
    if (first < 0) first = 0;
    while (first <= last) {
        const int middle = first + (last - first) / 2;
        const int order = array_.at(static_cast<unsigned int>(middle))->getKey().compare(key);
        if (order == 0) return middle;
        if (order < 0) {
            first = middle + 1;
        } else {
            last = middle - 1;
        }
    }
    return ~first;
}
