#pragma once

// A growable array of untyped pointers with a hard ceiling. A negative index counts back from the end: -1 is the last.
// Any index that was resolved, also by a mere read, belongs to the used range; what was never set there is null.
// Ownership: of all items when deleteOnCleanup, of none otherwise; an item that is taken out or overwritten is not
// released.
// Threads: not synchronised; users lock.
class FlexArrayBase {
public:
    // Slots double from initialCapacity and never pass maxCapacity; give a ceiling that is reached by doubling.
    FlexArrayBase(bool deleteOnCleanup, unsigned int initialCapacity, unsigned int maxCapacity);
    virtual ~FlexArrayBase();
    FlexArrayBase(const FlexArrayBase&) = delete;
    FlexArrayBase& operator=(const FlexArrayBase&) = delete;

    virtual void freeItem(void* item);             // C free of a non-null item
    virtual void setArraySize(unsigned int size);  // slots allocated; never fewer than are used

    void clear();  // releases the items when the array owns them; afterwards empty, its slots kept
    int getMinIndex() const { return isEmpty() ? 0 : minIndex_; }  // lowest used index; 0 when empty
    int getMaxIndex() const { return maxIndex_; }                  // -1 when empty
    bool isEmpty() const { return maxIndex_ < 0; }
    // Of the used range, what was never set in it included.
    unsigned int size() const { return isEmpty() ? 0 : static_cast<unsigned int>(maxIndex_ + 1 - minIndex_); }
    void set(unsigned int index, void* item);     // past the ceiling: dropped without a message
    int find(const void* item) const;             // first index, -1 when absent
    void insert(unsigned int index, void* item);  // later items move up; at the ceiling the last one is lost
    void push(void* item) { insert(static_cast<unsigned int>(maxIndex_ + 1), item); }  // at the ceiling: dropped
    void* peek(int index);                 // null when there is no such item; the array grows up to the index
    void* pop(int index);                  // taken out, the caller's from now on; later items move down
    int getIndex(int index);               // resolved index, -1 when there is none
    int resolveIndex(unsigned int index);  // makes the index part of the array; -1 past the ceiling

protected:
    void setArraySizeBase(unsigned int size);

    const unsigned int initialCapacity_;
    unsigned int size_ = 0;           // slots allocated
    const bool deleteOnCleanup_;      // clear and the destructor release the items
    const unsigned int maxCapacity_;  // ceiling of size_
    int minIndex_;                    // lowest used index; maxCapacity_ when there is none
    int maxIndex_ = -1;               // highest used index
    void** array_ = nullptr;          // owned slots; absent while size_ is 0
};

// The typed form: T is a pointer type. Items are released with delete, or delete[] after setDoArrayDelete.
template <typename T>
class FlexArray : public FlexArrayBase {
public:
    static constexpr unsigned int DEFAULT_CAPACITY = 32;
    static constexpr unsigned int NO_CEILING = 1073741824;  // for lists whose length nothing bounds

    // A list of borrowed items, whose class may be incomplete here.
    FlexArray() : FlexArrayBase(false, DEFAULT_CAPACITY, NO_CEILING) { setArraySize(initialCapacity_); }

    // deleteOnCleanup: the array owns its items, whose class is complete here.
    explicit FlexArray(bool deleteOnCleanup, unsigned int initialCapacity = DEFAULT_CAPACITY,
                       unsigned int maxCapacity = NO_CEILING)
        : FlexArrayBase(deleteOnCleanup, initialCapacity, maxCapacity), release_(&Release) {
        setArraySize(initialCapacity_);
    }
    ~FlexArray() override { clear(); }  // while freeItem still is this class's

    void freeItem(void* item) final {
        if (item != nullptr && release_ != nullptr) release_(item, doArrayDelete_);
    }
    void setArraySize(unsigned int size) final {
        setArraySizeBase(size);
        tArray_ = static_cast<T*>(static_cast<void*>(array_));
    }

    // As in the base, typed.
    void set(unsigned int index, T item) { FlexArrayBase::set(index, Untyped(item)); }
    T get(int index) { return peek(index); }
    T& operator[](unsigned int index) {  // a null item past the ceiling; valid until the array grows
        const int resolved = resolveIndex(index);
        return resolved < 0 ? nullItem_ = nullptr : tArray_[resolved];
    }
    T peek(int index) { return static_cast<T>(FlexArrayBase::peek(index)); }
    T pop(int index) { return static_cast<T>(FlexArrayBase::pop(index)); }
    T pop(T item) {  // taken out by identity; null when absent
        const int index = find(item);
        return index < 0 ? nullptr : pop(index);
    }
    int find(T item) const { return FlexArrayBase::find(item); }
    void insert(unsigned int index, T item) { FlexArrayBase::insert(index, Untyped(item)); }
    void push(T item) { FlexArrayBase::push(Untyped(item)); }
    // The item at a used index, null for any other: unlike get it never grows the array.
    T at(unsigned int index) const { return index < size_ ? tArray_[index] : nullptr; }
    T* getArray() { return tArray_; }  // the slots from index 0, until the array grows; null while it has none
    void setDoArrayDelete(bool doArrayDelete) { doArrayDelete_ = doArrayDelete; }  // owned items came from new[]

private:
    static void* Untyped(T item) { return const_cast<void*>(static_cast<const void*>(item)); }

    static void Release(void* item, bool isArray) {
        if (isArray) {
            delete[] static_cast<T>(item);
        } else {
            delete static_cast<T>(item);
        }
    }

    T nullItem_ = nullptr;  // what stands for an index that cannot be resolved
    T* tArray_ = nullptr;   // array_, typed
    bool doArrayDelete_ = false;
    void (*const release_)(void*, bool) = nullptr;  // null when no item is ever owned
};
