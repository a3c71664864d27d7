#include "utils/hdf5/Hdf5Writer.h"

#include <unistd.h>

#include <algorithm>

#include "io/OldFile.h"
#include "utils/hdf5/Hdf5Handle.h"
#include "utils/hdf5/Hdf5Library.h"

Hdf5Writer::Hdf5Writer(const char* path, size_t userBlockSize) : userBlockSize_(userBlockSize) {
    Hdf5Library::Prepare();
    RemoveOldFile(path);
    create(path);
    if (userBlockSize_ > 0) keepUserBlockOpen();
    root_.reset(new Hdf5Group(file_, file_.call([&] { return H5Gopen2(id_, "/", H5P_DEFAULT); })));
}

Hdf5Writer::~Hdf5Writer() {
    finalize();
}

// The library would keep 32 MB of descriptions of items, which take ten times that in memory.
static void LimitDescriptions(Hdf5File& file, Hdf5Id access) {
    H5AC_cache_config_t config;
    config.version = H5AC__CURR_CACHE_CONFIG_VERSION;
    if (file.call([&] { return H5Pget_mdc_config(access, &config); }) < 0) return;
    config.max_size = 4194304;
    file.call([&] { return H5Pset_mdc_config(access, &config); });
}

// Closing the file closes what is in it too, also after a failure. No chunk is kept in memory: whole ones come and go.
void Hdf5Writer::create(const char* path) {
    const MemoryReserve::Loan memory;
    const Hdf5Handle creation(file_.call([] { return H5Pcreate(H5P_FILE_CREATE); }), &H5Pclose);
    const Hdf5Handle access(file_.call([] { return H5Pcreate(H5P_FILE_ACCESS); }), &H5Pclose);
    file_.call([&] { return H5Pset_userblock(creation, userBlockSize_); });
    file_.call([&] { return H5Pset_obj_track_times(creation, false); });
    file_.call([&] { return H5Pset_fclose_degree(access, H5F_CLOSE_STRONG); });
    file_.call([&] { return H5Pset_cache(access, 0, 1, 0, 1); });
    LimitDescriptions(file_, access);
    id_ = file_.call([&] { return H5Fcreate(path, H5F_ACC_TRUNC, creation, access); });
    file_.setId(id_);
}

// The library leaves the block alone. The path may stand for another file by the time that this one is closed.
void Hdf5Writer::keepUserBlockOpen() {
    void* descriptor = nullptr;
    file_.call([&] { return H5Fget_vfd_handle(id_, H5P_DEFAULT, &descriptor); });
    if (descriptor != nullptr) userBlockFile_ = dup(*static_cast<int*>(descriptor));
}

void Hdf5Writer::writeUserBlock() {
    const ssize_t length = std::min(userBlock_.length(), userBlockSize_);
    errno = 0;
    if (pwrite(userBlockFile_, userBlock_.data(), length, 0) != length) file_.fail();
    close(userBlockFile_);
    userBlockFile_ = -1;
}

bool Hdf5Writer::finalize() {
    file_.flush();
    const MemoryReserve::Loan memory;
    file_.forget();
    root_.reset();
    errno = memory.hasRoom() ? 0 : ENOMEM;
    if (id_ >= 0 && (!memory.hasRoom() || H5Fclose(id_) < 0)) file_.fail();
    id_ = -1;
    if (userBlockFile_ >= 0) writeUserBlock();
    return isOk();
}
