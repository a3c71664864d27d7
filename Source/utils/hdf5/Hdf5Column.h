#pragma once

#include <memory>

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

protected:
    Hdf5Column(Hdf5File& file, Hdf5Id group, const char* name, Hdf5Id fileType, const Hdf5Shape& recordShape,
               size_t elementSize);

    // Makes room for one more record; the result is its place in the block, counted from 0.
    size_t beginRecord(size_t bytes);
    size_t blockRecords() const { return static_cast<size_t>(chunkRecords_); }

    const size_t elements_;  // of a record

private:
    // Writes so many records from the block's beginning into the selected part of the file.
    virtual void put(size_t records, Hdf5Id memorySpace, Hdf5Id fileSpace) = 0;
    virtual void dropBlock() = 0;

    void create(Hdf5Id group, const char* name, Hdf5Id fileType);

    Hdf5Shape shape_;  // a record's, then the records
    unsigned long long chunkRecords_;
    unsigned long long written_ = 0;  // records
    size_t count_ = 0;                // records gathered
    size_t room_;                     // records that complete the chunk
};

// Records of double-precision numbers; NaN is stored as such.
class Hdf5NumberColumn final : public Hdf5Column {
public:
    Hdf5NumberColumn(Hdf5File& file, Hdf5Id group, const char* name, const Hdf5Shape& recordShape);

    // The next record's elements, slowest dimension first, to be set by the caller before the next call.
    double* addRecord();
    void add(double number) { *addRecord() = number; }  // where a record is one number

private:
    void put(size_t records, Hdf5Id memorySpace, Hdf5Id fileSpace) override;
    void dropBlock() override { block_.reset(); }

    std::unique_ptr<double[]> block_;  // record after record; null when nothing is gathered
};

// Texts of any length in UTF-8, {1, N}.
class Hdf5TextColumn final : public Hdf5Column {
public:
    Hdf5TextColumn(Hdf5File& file, Hdf5Id group, const char* name);
    void add(const Str& text);  // copied, up to its first NUL; the caller sees to its being UTF-8

private:
    void put(size_t records, Hdf5Id memorySpace, Hdf5Id fileSpace) override;
    void dropBlock() override { block_.reset(); }

    std::unique_ptr<Str[]> block_;
};

// References to items of the file, {1, N}.
class Hdf5ReferenceColumn final : public Hdf5Column {
public:
    Hdf5ReferenceColumn(Hdf5File& file, Hdf5Id group, const char* name);
    void add(uint64_t reference);  // as Hdf5Item::reference gave it

private:
    void put(size_t records, Hdf5Id memorySpace, Hdf5Id fileSpace) override;
    void dropBlock() override { block_.reset(); }

    std::unique_ptr<uint64_t[]> block_;
};
