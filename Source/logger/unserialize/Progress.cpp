#include "logger/unserialize/Progress.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "utils/Timespan.h"

static const Timespan LINE_INTERVAL(0, 200000);
static const char* const CLEAR_LINE = "\r\033[K";  // to the first column, erase to the right

static Timestamp MonotonicNow() {
    Timestamp now;
    now.setToMonoTime();
    return now;
}

Progress::Progress(bool wanted, long long totalBytes)
    : isShown_(wanted && totalBytes > 0 && isatty(STDERR_FILENO) != 0),
      totalBytes_(totalBytes),
      start_(MonotonicNow()),
      nextLine_(start_ + LINE_INTERVAL) {}

void Progress::show(long long bytesDone) {
    const Timestamp now = MonotonicNow();
    if (now < nextLine_) return;
    nextLine_ = now + LINE_INTERVAL;
    fprintf(stderr, "%s%s", CLEAR_LINE, Line(bytesDone, totalBytes_, (now - start_).asDouble()).cStr());
    fflush(stderr);
    lineStands_ = true;
}

void Progress::clear() {
    if (lineStands_) fputs(CLEAR_LINE, stderr);
    lineStands_ = false;
}

Str Progress::Line(long long bytesDone, long long totalBytes, double seconds) {
    const double share = std::min(1.0, static_cast<double>(bytesDone) / static_cast<double>(totalBytes));
    const double bytesPerSecond = seconds > 0 ? static_cast<double>(bytesDone) / seconds : 0.0;
    const double secondsLeft = share > 0 ? seconds * (1.0 - share) / share : 0.0;
    const long long left = std::llround(std::min(secondsLeft, 359999.0));
    char line[64];
    snprintf(line, sizeof line, "%3.0f%%  %.0f MB/s  %lld:%02lld left", share * 100.0, bytesPerSecond / 1e6, left / 60,
             left % 60);
    return Str(line);
}
