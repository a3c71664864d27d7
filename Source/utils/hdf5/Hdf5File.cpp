#include "utils/hdf5/Hdf5File.h"

#include <hdf5.h>

#include <cstring>

#include "utils/hdf5/Hdf5Column.h"

Hdf5File::Hdf5File() : columns_(true) {}

Hdf5File::~Hdf5File() {}

// The library lists where a failure passed; the place where it arose comes first and says most.
static herr_t TakeFirst(unsigned index, const H5E_error2_t* error, void* reason) {
    if (index == 0) *static_cast<Str*>(reason) = error->desc;
    return 0;
}

void Hdf5File::fail() {
    const int systemError = errno;
    if (!ok_) return;
    ok_ = false;
    status_ = "HDF5 failed";
    if (systemError != 0) {
        status_ = strerror(systemError);
    } else {
        H5Ewalk2(H5E_DEFAULT, H5E_WALK_UPWARD, &TakeFirst, &status_);
    }
}

void Hdf5File::keepOpen(Hdf5Item& item) {
    Hdf5Item*& place = open_[opened_++ % MAX_OPEN];
    if (place != nullptr) place->rest();
    place = &item;
}

void Hdf5File::countGathered(size_t bytes) {
    gathered_ += bytes;
    if (gathered_ > GATHER_ROOM) flush();
}

bool Hdf5File::flush() {
    for (unsigned int i = 0; i < columns_.size(); ++i) columns_.at(i)->flush();
    return ok_;
}

void Hdf5File::forget() {
    columns_.clear();
}
