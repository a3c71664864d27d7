#include <memory>
#include <set>

#include "data/DataAccess.h"
#include "logger/entry/DataEntry.h"
#include "logger/entry/DirectoryEntry.h"
#include "logger/entry/EventEntry.h"
#include "logger/entry/SyslogEntry.h"
#include "logger/writer/binary/BinaryLogWriter.h"
#include "slatesynth/Damage.h"
#include "slatesynth/Dive.h"
#include "support/MemoryStreams.h"
#include "support/SlateFixture.h"
#include "support/TempDir.h"

namespace {

struct LogContent {
    std::string rewritten_;  // every entry decoded and written again
    unsigned long long entries_ = 0;
    std::set<std::string> kinds_;  // of everything that an entry can be
};

class SlateSynthTest : public SlateFixture {
protected:
    // Writes a log and leaves an empty Slate; the number of entries written.
    unsigned long long synthesise(SynthOptions options) {
        options.output_ = files_.path("log").c_str();
        Dive dive(options);
        EXPECT_EQ(0, dive.run());
        return dive.log().entriesWritten();
    }

    LogContent decode(const std::string& name) {
        LogContent content;
        MemoryOutStream out;
        BinaryLogWriter writer(out, false);
        const std::string bytes = files_.read(name);
        const Str text(bytes.data(), bytes.size());
        MemoryInStream in(text);
        Timestamp timeBase;
        Timespan asStored = Timespan::INVALID_TIMESPAN;
        bool error = false;
        while (const std::unique_ptr<LogEntry> entry{LogEntry::Read(timeBase, asStored, in, log_, error)}) {
            EXPECT_FALSE(error);
            note(*entry, content);
            writer.write(entry.get(), nullptr);
        }
        content.rewritten_ = out.bytes_;
        return content;
    }

    static void note(const LogEntry& entry, LogContent& content) {
        ++content.entries_;
        if (entry.getType() == LogEntry::DIRECTORY_LOG_ENTRY) content.kinds_.insert("DIRECTORY");
        if (const auto* data = dynamic_cast<const DataEntry*>(&entry)) {
            content.kinds_.insert("type " + std::to_string(data->getDataAccess()->getBinaryType()));
            content.kinds_.insert(data->isChanged() ? "changed" : "unchanged");
            if (data->isBest()) content.kinds_.insert("best");
        } else if (const auto* message = dynamic_cast<const SyslogEntry*>(&entry)) {
            content.kinds_.insert(Syslog::SeverityToString(message->getSeverity()));
        } else if (const auto* event = dynamic_cast<const EventEntry*>(&entry)) {
            content.kinds_.insert(EventEntry::EventTypeToString(event->getEventType()));
            if (event->getEventType() == EventEntry::COMPONENT_ACTION &&
                event->getComponentAction() == EventEntry::COMPONENT_MISSION_RUN) {
                content.kinds_.insert("run " + std::to_string(event->getRunning()));
            }
        }
    }

    TempDir files_;
};

TEST_F(SlateSynthTest, ADiveHoldsEveryKindOfEntry) {
    SynthOptions options;
    options.minutes_ = 70;  // the third dive is preempted
    synthesise(options);
    const LogContent content = decode("log");
    std::set<std::string> expected = {
        "DIRECTORY",        "changed", "unchanged", "best",  "START_CYCLE", "SET_DATA_ACCURACY", "SET_DATA_STATE",
        "COMPONENT_ACTION", "DEBUG",   "INFO",      "ERROR", "IMPORTANT",   "CRITICAL",          "FAULT"};
    for (int type : {STRVALUE, UCHAR1, SHORT2, USHORT2, FLOAT2, FLOAT3, INT4, FLOAT4, DOUBLE8, DOUBLE4, DOUBLE6}) {
        expected.insert("type " + std::to_string(type));
    }
    for (int loop = -1; loop <= 6; ++loop) expected.insert("run " + std::to_string(loop));
    EXPECT_EQ(expected, content.kinds_);
}

TEST_F(SlateSynthTest, EveryPartDecodesAloneAndTheSeedDecidesEveryByte) {
    SynthOptions options;
    options.megabytes_ = 0.3;
    options.parts_ = 3;
    synthesise(options);
    const std::string first = files_.read("log0000");
    options.seed_ = 2;
    synthesise(options);
    EXPECT_FALSE(first == files_.read("log0000"));
    options.seed_ = 1;
    const unsigned long long written = synthesise(options);
    EXPECT_TRUE(first == files_.read("log0000"));
    unsigned long long decoded = 0;
    for (const char* part : {"log0000", "log0001", "log0002"}) {
        Slate::Uninitialize();
        const LogContent content = decode(part);
        EXPECT_TRUE(files_.read(part) == content.rewritten_) << part;
        decoded += content.entries_;
    }
    EXPECT_EQ(written, decoded);
    EXPECT_FALSE(files_.has("log0003"));
}

TEST_F(SlateSynthTest, DamageIsReproducibleAndSparesTheVersion) {
    const std::string whole(100000, 'x');
    const std::pair<const char*, uint64_t> copies[] = {{"a", 1}, {"b", 1}, {"c", 2}};
    for (const auto& [name, seed] : copies) ASSERT_TRUE(DamageFile(files_.write(name, whole).c_str(), 30, seed));
    EXPECT_NE(whole, files_.read("a"));
    EXPECT_EQ(files_.read("a"), files_.read("b"));
    EXPECT_NE(files_.read("a"), files_.read("c"));
    EXPECT_EQ("xxxxxxxx", files_.read("a").substr(0, 8));
    EXPECT_NEAR(100000, static_cast<double>(files_.read("a").size()), 30 * 16);
    EXPECT_FALSE(DamageFile(files_.path("missing").c_str(), 1, 1));
}

}  // namespace
