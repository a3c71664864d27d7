#include "logger/writer/FilterLogWriter.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/CapturedLog.h"
#include "support/JournalWriter.h"
#include "support/NameList.h"
#include "support/SmallLog.h"

namespace {
// Notes which of its lists an entry was matched to, at which index and in which unit.
class MatchWriter : public FilterLogWriter {
public:
    MatchWriter(NameList& names, NameList& units, bool passCycleStarts, NameList& attributes)
        : FilterLogWriter(nullptr, names.count(), names.list(), units.list(), passCycleStarts, attributes.count(),
                          attributes.list()) {}
    unsigned int writeCycleStart(const EventEntry*) override { return note("cycle", nullptr); }
    unsigned int writeData(const DataEntry*, int varIndex, const Unit* unit) override {
        return note("data" + std::to_string(varIndex), unit);
    }
    unsigned int writeAtt(const DataEntry*, int attIndex, const Unit* unit) override {
        return note("att" + std::to_string(attIndex), unit);
    }
    // What the entry was matched to; each match counts one byte.
    std::string matches(const LogEntry* entry, const Unit* unit = nullptr) {
        matches_.clear();
        const unsigned int bytes = write(entry, unit);
        EXPECT_EQ(std::count(matches_.begin(), matches_.end(), ' '), bytes);
        return matches_;
    }

private:
    unsigned int note(const std::string& what, const Unit* unit) {
        matches_ += what + (unit == nullptr ? "" : std::string(":") + unit->getAbbreviation()) + " ";
        return 1;
    }

    std::string matches_;  // each followed by a blank
};

class FilterLogWriterTest : public testing::Test {
protected:
    SmallLog log_;
    DataAccess* depth_ = log_.declareServing("depth", "Depth.depth", Units::METER);
    DataAccess* rate_ = log_.declare("Depth.rate", Units::METER_PER_SECOND);
    NameList names_{"Depth.depth", "depth"};
    NameList units_{"cm", nullptr};
    NameList attributes_{"Depth.rate", "Depth.depth"};
    NameList none_{};
};
}  // namespace

TEST_F(FilterLogWriterTest, MatchesDataToVariablesAndAttributes) {
    MatchWriter writer(names_, units_, false, attributes_);
    EXPECT_EQ("data0:cm att1 ", writer.matches(log_.data(depth_, 1, 2.5)));
    EXPECT_EQ("data0:cm data1 att1 ", writer.matches(log_.bestData(depth_, 1, 2.5)));
    EXPECT_EQ("att0 ", writer.matches(log_.bestData(rate_, 1, 0.5)));
    EXPECT_EQ("data0:km att1:km ", writer.matches(log_.data(depth_, 1, 2.5), &Units::KILOMETER));
    for (const LogEntry* other :
         std::initializer_list<LogEntry*>{log_.cycle(0), log_.cycle(1), log_.syslog(1, "x"), log_.version(8)}) {
        EXPECT_EQ("", writer.matches(other));
    }
    EXPECT_EQ(0U, writer.write(nullptr, nullptr));
}

// The element itself may be what its access names as universal: it is one variable, not two.
TEST_F(FilterLogWriterTest, ABestValueThatIsItsOwnUniversalMatchesOnce) {
    DataAccess self(0, depth_->getElementCode(), ElementURI::SELF_CODE, Units::METER, DOUBLE8, 8, 9,
                    DataAccessor::DATA_WRITER);
    MatchWriter writer(names_, units_, false, none_);
    EXPECT_EQ("data0:cm ", writer.matches(log_.bestData(&self, 1, 2.5)));
}

// The base alone: what is selected goes to the next writer, and everything that is no entry too.
TEST_F(FilterLogWriterTest, ForwardsToTheNextWriterIfThereIsOne) {
    std::string journal;
    for (LogWriter* const next :
         {static_cast<LogWriter*>(new JournalWriter(journal)), static_cast<LogWriter*>(nullptr)}) {
        FilterLogWriter writer(next, names_.count(), names_.list(), units_.list(), true, 1, attributes_.list());
        unsigned int bytes = writer.writeHeader();
        for (const LogEntry* entry : std::initializer_list<LogEntry*>{
                 log_.cycle(0), log_.cycle(1), log_.data(depth_, 1, 2.5), log_.data(rate_, 1, 0.5), log_.version(8)}) {
            bytes += writer.write(entry, nullptr);
        }
        CapturedLog messages;
        Logger logger("test", &messages);
        writer.endCycle();
        writer.config(logger);
        writer.resetInputs();
        EXPECT_EQ(next == nullptr ? 0U : 5U, bytes + writer.writeFooter());
    }
    EXPECT_EQ("resetInputs header entry entry in centimeter entry endCycle config resetInputs footer deleted ",
              journal);
}

TEST_F(FilterLogWriterTest, PassesCycleStartsFromTheSecondOn) {
    MatchWriter writer(none_, none_, true, none_);
    EXPECT_EQ("", writer.matches(log_.cycle(0)));
    EXPECT_EQ("cycle ", writer.matches(log_.cycle(1)));
    EXPECT_EQ("", writer.matches(log_.running("Depth", 1, 3)));
    EXPECT_EQ("cycle ", writer.matches(log_.cycle(2)));
}
