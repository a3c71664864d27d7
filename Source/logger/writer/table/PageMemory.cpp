#include "logger/writer/table/PageMemory.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

static const int FAILURE_STATUS = 1;

namespace {

// The file is gone with the process, however that ends. Below 0 when it cannot be had.
int OpenNamelessFile(const char* directory) {
    if (directory == nullptr) return -1;
    char name[PATH_MAX];
    const int length = snprintf(name, sizeof name, "%s/slateXXXXXX", directory);
    const int file = length < PATH_MAX ? mkostemp(name, O_CLOEXEC) : -1;
    if (file >= 0) unlink(name);
    return file;
}

int OpenNamelessFile() {
    for (const char* directory : {static_cast<const char*>(getenv("TMPDIR")), "/var/tmp", "/tmp"}) {
        const int file = OpenNamelessFile(directory);
        if (file >= 0) return file;
    }
    return -1;
}

}  // namespace

struct PageMemory::FreePlace {
    long place_;
    FreePlace* next_;
};

PageMemory::~PageMemory() {
    while (FreePlace* const free = freePlaces_) {
        freePlaces_ = free->next_;
        delete free;
    }
    if (file_ >= 0) close(file_);
}

void PageMemory::drop(Page& page) {
    if (page.bytes_ != nullptr) unlink(page);
    page.bytes_.reset();
    if (page.place_ != NOWHERE) freePlaces_ = new FreePlace{page.place_, freePlaces_};
    page.place_ = NOWHERE;
}

// Makes the page the one used last.
void PageMemory::renew(Page& page) {
    if (page.bytes_ == nullptr) {
        bring(page);
    } else {
        unlink(page);
    }
    link(page);
}

void PageMemory::bring(Page& page) {
    page.bytes_ = takeBytes();
    if (page.place_ != NOWHERE) load(page);
}

void PageMemory::link(Page& page) {
    page.newer_ = nullptr;
    page.older_ = newest_;
    (newest_ == nullptr ? oldest_ : newest_->newer_) = &page;
    newest_ = &page;
    ++pageCount_;
}

void PageMemory::unlink(Page& page) {
    (page.newer_ == nullptr ? newest_ : page.newer_->older_) = page.older_;
    (page.older_ == nullptr ? oldest_ : page.older_->newer_) = page.newer_;
    --pageCount_;
}

// Those of the page that has to leave, new ones while there is room or where none can leave.
std::unique_ptr<char[]> PageMemory::takeBytes() {
    if (pageCount_ < room_.pages_ || isFull_) return std::unique_ptr<char[]>(new char[pageBytes()]);
    Page& leaving = *oldest_;
    isFull_ = !store(leaving);
    if (isFull_) return takeBytes();
    unlink(leaving);
    return std::move(leaving.bytes_);
}

bool PageMemory::store(Page& page) {
    if (file_ < 0) file_ = OpenNamelessFile();
    if (file_ < 0) return false;
    if (page.place_ == NOWHERE) page.place_ = newPlace();
    return pwrite(file_, page.bytes_.get(), pageBytes(), page.place_) == static_cast<ssize_t>(pageBytes());
}

void PageMemory::load(Page& page) {
    if (pread(file_, page.bytes_.get(), pageBytes(), page.place_) == static_cast<ssize_t>(pageBytes())) return;
    fflush(nullptr);
    fprintf(stderr, "Failed to read the temporary file of a table's waiting rows: %s; what was written stays\n",
            strerror(errno));
    _exit(FAILURE_STATUS);
}

long PageMemory::newPlace() {
    if (freePlaces_ == nullptr) return std::exchange(fileEnd_, fileEnd_ + static_cast<long>(pageBytes()));
    const std::unique_ptr<FreePlace> free(freePlaces_);
    freePlaces_ = free->next_;
    return free->place_;
}
