#pragma once

// The version of a log's format, by which entries are decoded and written.
class LogVersion {
public:
    static constexpr unsigned short OLDEST = 3;  // that can be read
    static constexpr unsigned short NEWEST = 8;

    // One from OLDEST to NEWEST.
    LogVersion(unsigned short inForce = NEWEST) : inForce_(inForce) {}

    // A log in a version that is accepted is decoded by it, and it is the newest that later logs may have. False when
    // it cannot be read: the version in force stays.
    bool accept(short told) {
        if (told < OLDEST || told > inForce_) return false;
        inForce_ = static_cast<unsigned short>(told);
        return true;
    }
    unsigned short inForce() const { return inForce_; }
    // False for the versions whose entry times are plain: there a data entry always carries its value.
    bool timesHaveFlag() const { return inForce_ > LAST_WITHOUT_FLAG; }

private:
    static constexpr unsigned short LAST_WITHOUT_FLAG = 3;

    unsigned short inForce_;
};
