#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

#include "io/TemporaryFile.h"

// Pages of plain bytes, of which a limited number is in memory: those that were not used for the longest time lie in a
// temporary file without a name, which is made when the first one has to leave. When the file cannot be had or takes no
// more, all stay in memory.
// Errors: once a page cannot be read back hasLost is true, and every page comes back from the file as zeros.
class PageMemory {
public:
    struct Room {
        size_t pageBytes_;
        size_t pages_;  // in memory; at least RECENT + 1
    };
    static constexpr size_t RECENT = 8;  // pages that always stay in memory, the ones used last

    // A page's place, to derive from; its bytes are there from the first use on, and not set then.
    class Page {
        friend class PageMemory;

        std::unique_ptr<char[]> bytes_;  // null: not in memory
        off_t place_ = NOWHERE;          // in the file
        Page* newer_ = nullptr;          // of the pages in memory, by their last use
        Page* older_ = nullptr;
    };

    // The name of the file beside which the temporary file is made, asked for when that is needed; empty: none.
    typedef std::function<Str()> Neighbour;

    explicit PageMemory(
        const Room& room, Neighbour neighbour = [] { return Str(); })
        : room_(room), neighbour_(std::move(neighbour)) {}
    ~PageMemory();
    PageMemory(const PageMemory&) = delete;
    PageMemory& operator=(const PageMemory&) = delete;

    void* use(Page& page) {  // its bytes, until RECENT others have been used
        if (&page != newest_) renew(page);
        return page.bytes_.get();
    }
    void drop(Page& page);  // gives its room back; call it before the page's end

    size_t pageBytes() const { return room_.pageBytes_; }
    size_t heldBytes() const { return pageCount_ * pageBytes(); }  // in memory

    bool hasLost() const { return lossError_ != 0; }
    Str lossReason() const;  // the temporary file's folder, and what went wrong there

private:
    static constexpr off_t NOWHERE = -1;
    struct FreePlace;

    void renew(Page& page);
    void bring(Page& page);
    void link(Page& page);
    void unlink(Page& page);
    std::unique_ptr<char[]> takeBytes();
    bool store(Page& page);
    void load(Page& page);
    off_t newPlace();

    const Room room_;
    const Neighbour neighbour_;
    size_t pageCount_ = 0;  // in memory
    Page* newest_ = nullptr;
    Page* oldest_ = nullptr;
    TemporaryFile file_;
    bool isFull_ = false;              // the file takes no more
    int lossError_ = 0;                // of the first page that could not be read back; 0: none
    FreePlace* freePlaces_ = nullptr;  // owned
};
