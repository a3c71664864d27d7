#include "logger/writer/ArrayLogWriter.h"

#include <gtest/gtest.h>

#include <string>

#include "support/NameList.h"
#include "support/SmallLog.h"

namespace {
// Notes in which order requests get their places and what is put there.
class PlaceWriter final : public ArrayLogWriter {
public:
    PlaceWriter(Order order, NameList& names, NameList& settings)
        : ArrayLogWriter(order, names.count(), names.list(), nullptr, settings.count(), settings.list()) {}
    unsigned int write(const LogEntry* entry, const Unit* unit) override {
        const unsigned int bytes = FilterLogWriter::write(entry, unit);
        isComplete_ = placeRequests() || isComplete_;
        return bytes;
    }

    std::string journal_;
    bool isComplete_ = false;

protected:
    bool place(int request) override {
        const bool isKnown = selectionOf(request).isFound(positionOf(request));
        journal_ += std::to_string(request) + (isKnown ? ":" + std::string(nameOf(request)) : "?") + " ";
        return isKnown;
    }
    unsigned int addSample(const DataEntry&, int request) override {
        journal_ += "+" + std::to_string(request) + " ";
        return 7;
    }
};

class ArrayLogWriterTest : public testing::Test {
protected:
    // What the writer notes of the entry.
    static std::string journal(PlaceWriter& writer, const LogEntry* entry) {
        writer.journal_.clear();
        writer.write(entry, nullptr);
        return writer.journal_;
    }

    SmallLog log_;
    DataAccess* inner_ = log_.declare("a.b.c");
    DataAccess* outer_ = log_.declare("a.b");
    DataAccess* setting_ = log_.declareSetting("x.y");
    NameList names_{"a.b.c", "a.b", "a.b.c"};
    NameList settings_{"a.b", "x.y", "x.y"};
};
}  // namespace

TEST_F(ArrayLogWriterTest, RequestsOfOneNameShareThePlaceOfTheFirst) {
    PlaceWriter listed(ArrayLogWriter::AS_LISTED, names_, settings_);
    EXPECT_EQ("0:a.b.c 1:a.b 4:x.y ", journal(listed, log_.cycle(0)));
    EXPECT_TRUE(listed.isComplete_);
    EXPECT_EQ("+0 ", journal(listed, log_.data(inner_, 0, 1)));
    EXPECT_EQ("+1 ", journal(listed, log_.data(outer_, 0, 1)));
    EXPECT_EQ("+4 ", journal(listed, log_.data(setting_, 0, 1)));
    EXPECT_EQ(7u, listed.writeData(log_.data(inner_, 0, 1), 2, nullptr));
    EXPECT_EQ(0u, listed.writeData(nullptr, 0, nullptr));

    PlaceWriter shortestFirst(ArrayLogWriter::SHORTEST_FIRST, names_, settings_);
    EXPECT_EQ("1:a.b 4:x.y 0:a.b.c ", journal(shortestFirst, log_.cycle(0)));
}

TEST_F(ArrayLogWriterTest, OpenRequestsAreTriedAgainWhenTheLogHasGrown) {
    NameList names{"a.late"};
    PlaceWriter writer(ArrayLogWriter::AS_LISTED, names, settings_);
    EXPECT_EQ("0? 1:a.b 2:x.y ", journal(writer, log_.cycle(0)));
    EXPECT_EQ("", journal(writer, log_.cycle(1)));
    log_.declare("a.late");
    EXPECT_FALSE(writer.isComplete_);
    EXPECT_EQ("0:a.late 1:a.b 2:x.y ", journal(writer, log_.cycle(2)));
    EXPECT_TRUE(writer.isComplete_);
    writer.resetInputs();
    EXPECT_EQ("0:a.late 1:a.b 2:x.y ", journal(writer, log_.cycle(3)));
}
