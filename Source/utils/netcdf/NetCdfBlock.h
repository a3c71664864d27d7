#pragma once

#include <cstddef>
#include <limits>
#include <memory>

#include "utils/RefusableBytes.h"
#include "utils/Str.h"
#include "utils/netcdf/NetCdf.h"

// How elements of one type are held while they are gathered.
struct NetCdfElementKind {
    size_t size_;                          // bytes
    void (*put_)(char* at, double value);  // fits the value to the type
    void (*putFill_)(char* at);            // what stands where nothing was written
};

// Gathers the records of one variable, so that the library, whose single calls are dear, is called once for many. The
// file is the same as with one call per value.
// Numbers are fitted to the variable's type as they come, since the library refuses one that is out of range: bytes,
// unsigned bytes, shorts and unsigned shorts keep their low bits, wider integers saturate, NaN among integers is the
// type's fill value. Threads: not synchronised.
class NetCdfBlock {
public:
    static const unsigned int DEFAULT_RECORDS = 1024;
    static const size_t ROOM = 65536;  // bytes that the records of a block may well take

    // Each record has the given shape: its numbers of elements along nDims - 1 dimensions. The block holds up to
    // maxRecords of them.
    NetCdfBlock(NetCdf::NetCdfType type, int nDims, const size_t* recordShape, size_t maxRecords);

    void limitTo(size_t maxRecords);               // holds fewer records; before the first one
    size_t elements() const { return elements_; }  // of a record
    size_t recordBytes() const { return elements_ * kind_.size_; }
    size_t gatheredBytes() const { return count_ * recordBytes(); }
    bool isFull() const { return count_ >= capacity_ || texts_.length() >= ROOM; }
    bool isRefused() const { return bytes_.isRefused() || texts_.isRefused(); }  // there was no memory for a record

    // Each adds a record; the block is not full. Elements that get no value are as if no call had written them.
    void addNumber(double value);                    // as its first element
    void addText(const Str& text);                   // likewise, in a variable of texts; up to its first NUL
    void addUnwritten();                             // no element has a value
    void setElement(size_t index, double value);     // of the record added last; past its end: ignored
    double lastValue() const { return lastValue_; }  // set last, before it was fitted; NaN before the first

    // Puts the gathered records into the file as the last of the variable's numRecs_, and starts anew, also after a
    // failure: they are lost then. The result is the library's status, 0 for success or when there were none.
    int flush(const NetCdf::NetCdfVar& var);

private:
    void pointToTexts();

    const NetCdfElementKind& kind_;
    const bool holdsTexts_;
    size_t counts_[NetCdf::MAX_DIMS];  // the shape of what is gathered: records, then the shape of each
    size_t elements_ = 1;              // of a record
    size_t capacity_;                  // records
    size_t count_ = 0;                 // records gathered
    double lastValue_ = std::numeric_limits<double>::quiet_NaN();
    RefusableBytes bytes_;  // the numbers; of texts, their places in texts_ counted from 1, 0 for none
    RefusableBytes texts_;  // each with its NUL
};
