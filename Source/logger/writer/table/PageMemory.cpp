#include "logger/writer/table/PageMemory.h"

#include <cerrno>
#include <cstring>
#include <utility>

struct PageMemory::FreePlace {
    off_t place_;
    FreePlace* next_;
};

PageMemory::~PageMemory() {
    while (FreePlace* const free = freePlaces_) {
        freePlaces_ = free->next_;
        delete free;
    }
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
    if (!file_.isOpen() && !file_.open(neighbour_())) return false;
    if (page.place_ == NOWHERE) page.place_ = newPlace();
    return file_.write(page.place_, page.bytes_.get(), pageBytes());
}

void PageMemory::load(Page& page) {
    if (!hasLost() && !file_.read(page.place_, page.bytes_.get(), pageBytes())) lossError_ = errno;
    if (hasLost()) memset(page.bytes_.get(), 0, pageBytes());
}

Str PageMemory::lossReason() const {
    return "a temporary file in " + file_.folder() + ": " + strerror(lossError_);
}

off_t PageMemory::newPlace() {
    if (freePlaces_ == nullptr) return file_.length();
    const std::unique_ptr<FreePlace> free(freePlaces_);
    freePlaces_ = free->next_;
    return free->place_;
}
