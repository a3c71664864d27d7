#pragma once

#include <cstddef>
#include <memory>

// Pages of plain bytes, of which a limited number is in memory: those that were not used for the longest time lie in a
// temporary file without a name, which is made when the first one has to leave. When the file cannot be had or takes no
// more, all stay in memory. What cannot be read back ends the process, as memory that is refused twice does.
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
        long place_ = NOWHERE;           // in the file
        Page* newer_ = nullptr;          // of the pages in memory, by their last use
        Page* older_ = nullptr;
    };

    explicit PageMemory(const Room& room) : room_(room) {}
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

private:
    static constexpr long NOWHERE = -1;
    struct FreePlace;

    void renew(Page& page);
    void bring(Page& page);
    void link(Page& page);
    void unlink(Page& page);
    std::unique_ptr<char[]> takeBytes();
    bool store(Page& page);
    void load(Page& page);
    long newPlace();

    const Room room_;
    size_t pageCount_ = 0;  // in memory
    Page* newest_ = nullptr;
    Page* oldest_ = nullptr;
    int file_ = -1;
    bool isFull_ = false;  // the file takes no more
    long fileEnd_ = 0;
    FreePlace* freePlaces_ = nullptr;  // owned
};
