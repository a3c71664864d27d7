#pragma once

// Counts the objects that live, to see who was deleted.
class Counted {
public:
    Counted() { ++Live_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    virtual ~Counted() { --Live_; }

    static inline int Live_ = 0;
};
