#pragma once

#include <memory>

#include "data/Slate.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/entry/LogEntry.h"
#include "support/MemoryStreams.h"
#include "support/SlateFixture.h"
#include "support/WorkedLog.h"

// Reads and writes single entries against the cycle start of the worked log.
class EntryFixture : public SlateFixture {
protected:
    template <typename Entry = LogEntry>
    std::unique_ptr<Entry> read(const Str& bytes, LogEntry::Values values = LogEntry::STORE_VALUES) {
        MemoryInStream in(bytes);
        error_ = false;
        LogEntry* entry = LogEntry::Read(timeBase_, timeAdjust_, in, log_, error_, values);
        return std::unique_ptr<Entry>(static_cast<Entry*>(entry));
    }
    Str write(const LogEntry& entry) {
        MemoryOutStream out;
        Timestamp base = timeBase_;
        const unsigned int n = entry.write(base, out);
        EXPECT_EQ(n, out.bytes_.size());
        return out.str();
    }
    void readRecord(const char* record) { EXPECT_NE(read(FromHex("2A") + Str(record)), nullptr) << record; }
    // The directory of the worked log: component, element and access all have code 0.
    void readDirectory() {
        for (size_t i = 0; i < WORKED_LOG_DIRECTORY; ++i) readRecord(WORKED_LOG[i].record_);
        log_.take();
    }

    Timestamp timeBase_{1338553800, 400000};
    Timespan timeAdjust_ = Timespan::ZERO_TIMESPAN;
    bool error_ = false;
};

// With the directory of the worked log.
class WorkedFixture : public EntryFixture {
protected:
    void SetUp() override { readDirectory(); }
};
