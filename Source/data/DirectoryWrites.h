#pragma once

class DirectorySink;

// What the writing of a log does with names, elements and accesses that are new to it, and how far its directory is
// written.
class DirectoryWrites {
public:
    void enable() { isEnabled_ = true; }      // new items get a code and an entry
    void simulate() { isSimulated_ = true; }  // new items get a code only
    // What is new stays without a code.
    void stop() { isEnabled_ = isSimulated_ = false; }
    // A new item gets the next code.
    bool giveCodes() const { return isEnabled_ || isSimulated_; }

    // Where the entries of new items go; borrowed, null (as at the start) means nowhere.
    void setSink(DirectorySink* sink) { sink_ = sink; }
    // Borrowed, may be null; the second is null too while no entries are made.
    DirectorySink* getSink() const { return sink_; }
    DirectorySink* sinkOfNewItems() const { return isEnabled_ ? sink_ : nullptr; }

    bool hasHeader() const { return hasHeader_; }  // a directory writer has begun a file of the log
    // By the directory writer that has done so.
    void noteHeader() { hasHeader_ = true; }
    void restart() { hasHeader_ = false; }  // the next header counts as the first one again

private:
    bool isEnabled_ = false;
    bool isSimulated_ = false;
    bool hasHeader_ = false;
    DirectorySink* sink_ = nullptr;  // borrowed
};
