#pragma once

class CodedStr;
class DataAccess;
class ElementURI;

// Takes what has just got a code in a log that is being written, so that its directory entry stands before the first
// entry that speaks of it. The items are the log's.
class DirectorySink {
public:
    virtual ~DirectorySink() {}
    // Each is called as soon as the item has its code, under the lock of its kind.
    virtual void takeNew(ElementURI& uri) = 0;
    virtual void takeNew(CodedStr& name) = 0;
    virtual void takeNew(DataAccess& access) = 0;
};
