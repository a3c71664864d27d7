#pragma once

#include <hdf5.h>

#include <type_traits>

#include "utils/hdf5/Hdf5File.h"

static_assert(std::is_same<hid_t, Hdf5Id>::value, "ids are the library's");

// An id that is closed at the end of its scope: a type, an extent, a list of properties. For the files of this folder.
class Hdf5Handle {
public:
    Hdf5Handle(Hdf5Id id, herr_t (*close)(hid_t)) : id_(id), close_(close) {}
    ~Hdf5Handle() {
        if (id_ >= 0) close_(id_);
    }
    Hdf5Handle(const Hdf5Handle&) = delete;
    Hdf5Handle& operator=(const Hdf5Handle&) = delete;
    operator Hdf5Id() const { return id_; }  // for a call; below 0 when there is none

private:
    const Hdf5Id id_;
    herr_t (*const close_)(hid_t);
};
