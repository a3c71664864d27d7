#pragma once

#include <cstddef>

#include "io/TemporaryFile.h"
#include "utils/FlexArray.h"
#include "utils/RefusableBytes.h"
#include "utils/Str.h"

class SampleSeries;

// The bytes of many series that grow side by side. As soon as they take more memory than they may, or are refused more,
// all of them move to a temporary file; what comes then begins in memory again.
// Errors: at the first one it takes nothing more; failure tells.
class SampleStore {
public:
    static constexpr size_t MEMORY = 67108864;  // bytes

    explicit SampleStore(size_t memory = MEMORY) : memory_(memory) {}
    SampleStore(const SampleStore&) = delete;
    SampleStore& operator=(const SampleStore&) = delete;

    void setNeighbour(const Str& file) { neighbour_ = file; }  // beside which the temporary file is made
    bool moveToFile();                                         // gives the memory back
    size_t heldBytes() const { return held_; }                 // of memory

    bool isRefused() const { return !failure_.isEmpty(); }
    const Str& failure() const { return failure_; }  // what went wrong first; empty: nothing
    void refuse(int error, const char* where = "");  // error: the system's number

private:
    friend class SampleSeries;
    void appendAndGrow(RefusableBytes& tail, const void* bytes, size_t length);
    bool append(RefusableBytes& tail, const void* bytes, size_t length);
    bool read(off_t place, void* bytes, size_t length);
    void refuseFile();

    const size_t memory_;
    FlexArray<SampleSeries*> series_;  // borrowed
    size_t held_ = 0;
    TemporaryFile file_;
    Str neighbour_;
    Str failure_;
};

// One of them.
class SampleSeries {
public:
    explicit SampleSeries(SampleStore& store) : store_(store) { store.series_.push(this); }  // outlives it
    SampleSeries(const SampleSeries&) = delete;
    SampleSeries& operator=(const SampleSeries&) = delete;

    void append(const void* bytes, size_t length) {
        if (length > tail_.spare()) {
            store_.appendAndGrow(tail_, bytes, length);
        } else {
            tail_.append(bytes, length);
        }
    }
    size_t length() const { return inFile_ + tail_.length(); }  // bytes
    void cutTo(size_t length);                                  // takes back what came behind
    // At most so many bytes from a place on; how many, none only at the end or when the file cannot be read.
    size_t read(size_t place, char* bytes, size_t length);

    SampleStore& store() { return store_; }

private:
    friend class SampleStore;
    // What was moved to the file at one time, up to where the next one begins.
    struct Segment {
        size_t begin_;
        off_t place_;  // in the file
    };
    bool moveTo(TemporaryFile& file);
    const Segment* segments() { return reinterpret_cast<const Segment*>(segments_.data()); }

    SampleStore& store_;
    RefusableBytes segments_;
    size_t inFile_ = 0;    // bytes
    RefusableBytes tail_;  // what came since
};
