#pragma once

#include <string>

#include "logger/writer/binary/BinaryLogWriter.h"
#include "support/CountOf.h"
#include "support/MemoryStreams.h"
#include "support/SmallLog.h"

// The bytes of logs as the vehicle writes them.
class DiveLog {
public:
    DiveLog() : writer_(out_, false) {}

    void add(LogEntry* entry) { writer_.write(entry, nullptr); }
    void declare(DataAccess* access) {
        add(log_.nameEntry(access));
        add(log_.elementEntry(access));
        if (access->getUniversalCode() < ElementURI::NUM_CODES) add(log_.universalEntry(access));
        add(log_.accessEntry(access));
    }
    // A version entry and the directory of a log of two variables: depth and speed.
    void begin() {
        depth_ = log_.declare("Depth.depth", Units::METER, FLOAT3);
        speed_ = log_.declare("Nav.speed", Units::METER_PER_SECOND, FLOAT3);
        add(log_.version(8));
        declare(depth_);
        declare(speed_);
    }
    // Cycles of one second, from the second given on: two values and a message each.
    void cycles(int first, int count) {
        for (int i = first; i < first + count; ++i) {
            add(log_.cycle(i));
            add(log_.data(depth_, i + 0.25, 0.5 * i));
            add(log_.data(speed_, i + 0.5, 1.5));
            add(log_.syslog(i + 0.75, "cycle", i % 2 == 0 ? Syslog::INFO : Syslog::ERROR, "Nav"));
        }
    }
    const std::string& bytes() const { return out_.bytes_; }

    // A whole log of so many cycles, the first at 12:30:00 plus so many seconds.
    static std::string Of(int cycleCount, int firstSecond = 0) {
        DiveLog dive;
        dive.begin();
        dive.cycles(firstSecond, cycleCount);
        return dive.bytes();
    }

    SmallLog log_;

private:
    MemoryOutStream out_;
    BinaryLogWriter writer_;
    DataAccess* depth_ = nullptr;  // the Slate's
    DataAccess* speed_ = nullptr;
};
