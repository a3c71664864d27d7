// Several logs that are open at the same time.

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "ReaderFixture.h"
#include "support/CapturedLog.h"
#include "support/MemoryStreams.h"
#include "support/WorkedLog.h"

namespace {

// The worked log, told by another component and in another version: its codes mean something else.
std::string Retold(std::string text, const std::string& component, int version) {
    for (size_t at = 0; (at = text.find("Depth", at)) != std::string::npos; at += component.size()) {
        text.replace(at, 5, component);
    }
    if (text == "v 0008\n") text = "v 000" + std::to_string(version) + "\n";
    if (text == "VERSION 8") text = "VERSION " + std::to_string(version);
    return text;
}

// A log that is read entry by entry, over and over, while nothing makes it the current one.
class OpenLog {
public:
    OpenLog(const std::string& component, int version, int times = 1) : version_(version) {
        engine_.addAssociation(new LineCollector(lines_), nullptr);
        for (int i = 0; i < times; ++i) {
            for (const WorkedEntry& entry : WORKED_LOG) add(entry, component);
        }
        reader_.setInStream(in_);
    }
    bool readOne() { return reader_.read() > 0; }
    void expectItsOwn() {
        EXPECT_EQ(expected_, lines_);
        EXPECT_EQ(version_, log_.version().inForce());
        EXPECT_EQ(Lines(), messages_.take());
    }

private:
    void add(const WorkedEntry& entry, const std::string& component) {
        expected_.push_back(Retold(entry.line_, component, version_));
        if (entry.record_ == nullptr) {
            bytes_ += entry.toBytes();
        } else {
            bytes_ += FromHex("2A") + Str(Retold(entry.record_, component, version_).c_str());
        }
    }

    const int version_;
    CapturedLog messages_;
    Log log_{&static_cast<const Logger&>(messages_)};
    Str bytes_;
    Lines lines_;
    Lines expected_;
    LogEngine engine_;
    const Logger silent_{"test", nullptr};
    const Timestamp open_ = Timestamp::NOT_SET_TIME;
    const Str anyMission_;
    MemoryInStream in_{bytes_};
    BinaryLogReader reader_{silent_, open_, open_, anyMission_, &engine_, nullptr, log_};
};

}  // namespace

TEST(OpenLogsTest, EachThreadReadsItsOwn) {
    OpenLog depth("Depth", 8, 300);
    OpenLog wings("Wings", 5, 300);
    std::thread other([&wings] {
        while (wings.readOne()) continue;
    });
    while (depth.readOne()) continue;
    other.join();
    depth.expectItsOwn();
    wings.expectItsOwn();
}
