#pragma once

#include <memory>

#include "utils/hdf5/Hdf5Group.h"

// Writes one HDF5 file of the oldest format, which every reader knows, without the times of its making.
//
//   Hdf5Writer writer("dive.h5", 0);
//   Hdf5NumberColumn& depth = writer.root().addGroup("Depth").addNumberColumn("value");
//   depth.add(1.5);
//   if (!writer.finalize()) complain(writer.status());
//
// Errors: once a call of the library has failed, isOk is false, status says why, and nothing more is written; items can
// still be used, to no effect. What was written stays. Threads: not synchronised.
class Hdf5Writer {
public:
    // Replaces the file at path. userBlockSize: bytes in front of what HDF5 takes for its own, a power of two of at
    // least 512, or 0.
    Hdf5Writer(const char* path, size_t userBlockSize);
    ~Hdf5Writer();  // finalizes
    Hdf5Writer(const Hdf5Writer&) = delete;
    Hdf5Writer& operator=(const Hdf5Writer&) = delete;

    Hdf5Group& root() { return *root_; }                  // until finalize
    bool isOk() const { return file_.isOk(); }            // no call has failed so far
    const Str& status() const { return file_.status(); }  // why the first one failed; empty while all went well

    void setUserBlock(const Str& bytes) { userBlock_ = bytes; }  // written when the file is closed; cut to its size
    bool finalize();  // writes what is gathered and closes the file; false when that or anything before failed

private:
    void create(const char* path);
    void keepUserBlockOpen();
    void writeUserBlock();

    const size_t userBlockSize_;  // bytes
    Str userBlock_;
    Hdf5File file_;
    Hdf5Id id_ = -1;
    int userBlockFile_ = -1;  // a descriptor of the same file; -1: none
    std::unique_ptr<Hdf5Group> root_;
};
