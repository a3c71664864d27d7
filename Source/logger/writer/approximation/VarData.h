#pragma once

#include <memory>

#include "logger/entry/DataEntry.h"
#include "utils/Timestamp.h"

// One variable's series on its way to fewer points: straight lines between the points that are passed on stay within an
// error bound of every point that is not. A segment runs from its start to its last admitted point; the corridor of
// slopes from the start that meet every admitted point's error band closes in until a point falls outside. Only numbers
// form a series.
class VarData {
public:
    // Starts at a copy of the entry. The bound is in the base unit of the entry's unit; NaN admits everything.
    VarData(const DataEntry& first, float approxError);

    // Takes the newest sample in. True when the segment ends before it: advance and pass the entry on.
    bool checkNextEntry(const DataEntry* entry);
    // Stamps the entry with the segment's end, which becomes the start of the next one.
    void advance();
    void setApproxError(float approxError) { approxError_ = approxError; }  // from the next sample on
    // All three points are one: nothing is pending.
    bool isSettled() const { return startTime_ == endTime_ && endTime_ == nextTime_; }

    float getDeltaT(const Timestamp& t) const;              // seconds since the segment's start
    DataEntry* getDataEntry() { return dataEntry_.get(); }  // the point to pass on; borrowed
    // There is a point to pass on: the first, or that at which the newest sample ended a segment.
    bool isReady() const { return ready_; }
    bool wasNaN() const { return wasNaN_; }  // of the newest sample

private:
    double numberOf(const DataEntry& entry) const { return entry.getNumber(unit_); }
    bool closeSegment();
    bool admit(float lower, float upper);

    std::unique_ptr<DataEntry> dataEntry_;  // carries each point that is passed on
    const Unit& unit_;                      // all arithmetic is in this base unit
    float approxError_;
    float minUpperSlope_;  // per second; NaN while no corridor is open
    float maxLowerSlope_;
    double startValue_;
    double endValue_;   // of the last admitted point
    double nextValue_;  // of the newest sample
    Timestamp startTime_;
    Timestamp endTime_;
    Timestamp nextTime_;
    bool ready_ = true;
    bool wasNaN_ = false;
};
