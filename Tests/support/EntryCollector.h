#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "logger/engine/LogWriter.h"
#include "support/SmallLog.h"

// A writer that keeps a short text for each entry: "1.5=20" for the number 20 in the value's own unit 1.5 s after the
// log's start, "cycle 2", and the text itself of anything else.
class EntryCollector : public LogWriter {
public:
    EntryCollector() { addParent(); }  // the test's

    unsigned int write(const LogEntry* entry, const Unit*) override {
        texts_.push_back(textOf(*entry));
        return 1;
    }
    void resetInputs() override { texts_.push_back("reset"); }
    // What came since the last call, separated by blanks.
    std::string take() {
        std::string all;
        for (const std::string& text : texts_) all += (all.empty() ? "" : " ") + text;
        texts_.clear();
        return all;
    }

    static std::string Number(double number) {
        char text[32];
        snprintf(text, sizeof text, "%.9g", number);
        return text;
    }
    static std::string Seconds(const Timestamp& t) { return Number((t - SmallLog::At(0)).asDouble()); }

    std::vector<std::string> texts_;

private:
    static std::string textOf(const LogEntry& entry) {
        const std::string seconds = Seconds(entry.getTimestamp());
        if (entry.getType() == LogEntry::EVENT_LOG_ENTRY) return "cycle " + seconds;
        if (entry.getType() != LogEntry::DATA_LOG_ENTRY) return entry.toString(nullptr).cStr();
        const DataEntry& data = static_cast<const DataEntry&>(entry);
        if (!data.isNumber()) return seconds + "=" + data.getDataValueString(nullptr, true).cStr();
        return seconds + "=" + Number(data.getNumber(*data.getDataValue()->getUnit()));
    }
};
