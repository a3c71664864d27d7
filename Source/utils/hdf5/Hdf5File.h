#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdint>

#include "utils/FlexArray.h"
#include "utils/MemoryReserve.h"
#include "utils/Str.h"

class Hdf5Column;
class Hdf5Item;

typedef int64_t Hdf5Id;  // an object of the library; below 0: none

// What the items of one file share: how the calls of the library went, and the columns with what they have gathered.
// After the first call that failed no other is made; what is in the file stays. Threads: not synchronised.
class Hdf5File {
public:
    Hdf5File();
    ~Hdf5File();
    Hdf5File(const Hdf5File&) = delete;
    Hdf5File& operator=(const Hdf5File&) = delete;

    bool isOk() const { return ok_; }              // no call has failed so far
    const Str& status() const { return status_; }  // why the first failed call failed; empty while all went well

    // The result of the call: an id, or 0 and above for success; below 0 when it failed or was not made.
    template <typename Call>
    Hdf5Id call(const Call& call) {
        if (!ok_) return -1;
        const MemoryReserve::Loan memory;
        errno = memory.hasRoom() ? 0 : ENOMEM;
        const Hdf5Id result = memory.hasRoom() ? call() : -1;
        if (result < 0) fail();
        return result;
    }
    void fail();  // notes why the last call failed: errno, failing that what the library says

    void setId(Hdf5Id id) { id_ = id; }  // of the open file
    Hdf5Id id() const { return id_; }
    void keepOpen(Hdf5Item& item);  // an item that was opened; the one for which there is no room any more rests
    void adopt(Hdf5Column* column) { columns_.push(column); }  // takes it over
    // Bytes that a column has gathered. When all of them together take too much room, they are written.
    void countGathered(size_t bytes);
    void countWritten(size_t bytes) { gathered_ -= bytes; }  // of them
    bool flush();   // writes what is gathered; false when that or anything before failed
    void forget();  // closes the columns, which are gone then with all that was not flushed

private:
    static const size_t GATHER_ROOM = 67108864;  // bytes
    static const size_t MAX_OPEN = 1024;         // items

    Hdf5Id id_ = -1;
    bool ok_ = true;
    Str status_;
    Hdf5Item* open_[MAX_OPEN] = {};  // in the order of opening, around; null: none yet
    size_t opened_ = 0;
    FlexArray<Hdf5Column*> columns_;  // owned
    size_t gathered_ = 0;             // bytes that the columns hold
};
