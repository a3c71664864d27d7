#pragma once

#include <memory>
#include <string>
#include <vector>

#include "logger/engine/LogEngine.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/reader/BinaryLogReader.h"
#include "support/SlateFixture.h"
#include "support/TempDir.h"
#include "support/WorkedLog.h"

// Collects the text line of every entry.
class LineCollector : public LogWriter {
public:
    explicit LineCollector(Lines& lines) : lines_(lines) {}
    unsigned int write(const LogEntry* entry, const Unit* unit) override {
        lines_.push_back(entry->toString(unit).cStr());
        return 1;
    }

private:
    Lines& lines_;  // borrowed
};

// Readers whose entries end up as lines.
class ReaderFixture : public SlateFixture {
protected:
    void SetUp() override { engine_.addAssociation(new LineCollector(lines_), nullptr); }

    BinaryLogReader* newReader() { return new BinaryLogReader(log_, start_, end_, mission_, &engine_, nullptr); }
    // The messages at ERROR and above.
    Lines errors() {
        Lines errors;
        for (const std::string& message : log_.take()) {
            if (message.compare(0, 5, "DEBUG") != 0) errors.push_back(message);
        }
        return errors;
    }
    static std::string stringOf(const Str& bytes) { return std::string(bytes.data(), bytes.length()); }
    static Lines workedLines(size_t first = 0) {
        Lines lines;
        for (size_t i = first; i < sizeof WORKED_LOG / sizeof *WORKED_LOG; ++i) lines.push_back(WORKED_LOG[i].line_);
        return lines;
    }

    Timestamp start_ = Timestamp::NOT_SET_TIME;
    Timestamp end_ = Timestamp::NOT_SET_TIME;
    Str mission_;
    Lines lines_;
    LogEngine engine_;
    TempDir dir_;
};
