#pragma once

#include <memory>

#include "utils/RefusableBytes.h"
#include "utils/hdf5/Hdf5Item.h"

// The extent of what a data set holds, slowest dimension first. A scalar has no dimensions.
struct Hdf5Shape {
    static const int MAX_RANK = 4;

    size_t elements() const;  // the product of the dimensions; 1 without any

    int rank_ = 0;
    unsigned long long dims_[MAX_RANK] = {};
};

// A data set that grows by records along its last dimension, the others being the shape of a record. Records are
// gathered and written in blocks, each a chunk of the file, which keeps them compressed. Made by a group, owned by the
// file. Errors: see Hdf5File; a column of a file that failed takes records to no effect.
class Hdf5Column : public Hdf5Item {
public:
    static const unsigned long long CHUNK_RECORDS = 1024;  // fewer where that would pass the room
    static const size_t CHUNK_ROOM = 1048576;              // bytes

    void flush();  // writes what is gathered, be it no whole block; what is never flushed is lost
    // Bytes of a chunk, before they are compressed; and those that the next record adds to the file: a chunk's when it
    // begins one, else none.
    static size_t ChunkBytes(size_t recordBytes);
    size_t newRoom() const;

protected:
    Hdf5Column(Hdf5File& file, Hdf5Id group, const char* name, Hdf5Id fileType, const Hdf5Shape& recordShape,
               size_t elementSize);

    // Room for one more record in the block; null, and the file has failed, when there is none.
    void* addBytes(size_t bytes);

    const size_t elements_;  // of a record
    RefusableBytes block_;   // record after record

private:
    // Writes what is gathered, and what is still missing of the chunk that begins there; false where that is no way.
    virtual bool putChunk(const unsigned long long*, size_t) { return false; }
    // Writes so many records, all that are gathered, into the selected part of the file.
    virtual void put(size_t records, Hdf5Id memorySpace, Hdf5Id fileSpace) = 0;

    void create(Hdf5Id group, const char* name, Hdf5Id fileType);
    void putRecords(const unsigned long long* start, size_t records);

    const size_t elementSize_;  // bytes
    Hdf5Shape shape_;           // a record's, then the records
    const unsigned long long chunkRecords_;
    unsigned long long written_ = 0;  // records
    size_t count_ = 0;                // records gathered
    size_t room_;                     // records that complete the chunk
};

// Records of double-precision numbers; NaN is stored as such.
class Hdf5NumberColumn final : public Hdf5Column {
public:
    Hdf5NumberColumn(Hdf5File& file, Hdf5Id group, const char* name, const Hdf5Shape& recordShape);

    // The next record's elements, slowest dimension first, to be set by the caller before the next call; null without
    // memory for them.
    double* addRecord() { return static_cast<double*>(addBytes(elements_ * sizeof(double))); }
    void add(double number);  // where a record is one number

private:
    void turn(size_t records);
    bool putChunk(const unsigned long long* start, size_t chunkRecords) override;
    void put(size_t records, Hdf5Id memorySpace, Hdf5Id fileSpace) override;
};

// Texts of any length in UTF-8, {1, N}.
class Hdf5TextColumn final : public Hdf5Column {
public:
    Hdf5TextColumn(Hdf5File& file, Hdf5Id group, const char* name);
    void add(const Str& text);  // copied, up to its first NUL; the caller sees to its being UTF-8

private:
    void put(size_t records, Hdf5Id memorySpace, Hdf5Id fileSpace) override;
};

// References to items of the file, {1, N}.
class Hdf5ReferenceColumn final : public Hdf5Column {
public:
    Hdf5ReferenceColumn(Hdf5File& file, Hdf5Id group, const char* name);
    void add(uint64_t reference);  // as Hdf5Item::reference gave it

private:
    void put(size_t records, Hdf5Id memorySpace, Hdf5Id fileSpace) override;
};
