#pragma once

#include "utils/Str.h"
#include "utils/Timestamp.h"

// Tells a person at a terminal how far a run is: the share of the input bytes, the rate, the time left. One line on
// standard error that is written over and over; nothing when standard error is no terminal.
class Progress {
public:
    // Bytes of all that will be read; of 0 nothing can be told, and nothing is shown.
    Progress(bool wanted, long long totalBytes);
    ~Progress() { clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Call after every run of entries: all but a few calls only count.
    bool isDue() { return isShown_ && ++calls_ % CALLS_PER_LOOK == 0; }
    void show(long long bytesDone);  // at most a few times a second
    void clear();                    // before other output comes to the terminal

    // " 42%  310 MB/s  1:05 left", from seconds since the start.
    static Str Line(long long bytesDone, long long totalBytes, double seconds);

private:
    static constexpr unsigned int CALLS_PER_LOOK = 64;  // runs between two looks at the clock

    const bool isShown_;
    const long long totalBytes_;
    unsigned int calls_ = 0;
    bool lineStands_ = false;
    Timestamp start_;
    Timestamp nextLine_;
};
