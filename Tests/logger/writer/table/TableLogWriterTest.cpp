#include "logger/writer/table/TableLogWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>

#include "../OutputFixture.h"
#include "logger/writer/FileLogWriter.h"
#include "logger/writer/FilterLogWriter.h"
#include "logger/writer/table/TextTableLogWriter.h"
#include "support/CountOf.h"
#include "support/EntryCollector.h"
#include "support/NameList.h"
#include "support/NamelessFiles.h"
#include "utils/AuvMath.h"

namespace {

typedef std::vector<std::string> Rows;

// Each row as "time|cell|cell": "-" for a cell that was emptied, "." for one that was not touched in this row.
class RecordingTable : public TableLogWriter {
public:
    RecordingTable(NameList& names, bool interpolate)
        : TableLogWriter(names.count(), names.list(), nullptr, interpolate), cells_(names.count(), ".") {}

    unsigned int writeToColumn(const DataEntry* entry, int column) override {
        cells_[column] = entry == nullptr ? "-" : textOf(*entry);
        return 1;
    }
    unsigned int writeSyslog(const SyslogEntry* entry) override {
        messages_ += entry->getMessage().cStr() + ("@" + EntryCollector::Seconds(entry->getTimestamp()));
        return 1;
    }
    unsigned int writeRow() override {
        std::string row = EntryCollector::Seconds(lastTime_);
        for (std::string& cell : cells_) row += "|" + std::exchange(cell, ".");
        rows_.push_back(row + messages_);
        messages_.clear();
        return 1;
    }

    Rows rows_;

private:
    static std::string textOf(const DataEntry& entry) {
        if (entry.getDataValue()->getBinaryType() == STRVALUE) return entry.getDataValueString(nullptr, true).cStr();
        return EntryCollector::Number(entry.getNumber(Units::NONE));
    }

    std::vector<std::string> cells_;
    std::string messages_;
};

// Twice to that of a variable which serves itself, and to each that the variable is listed for.
TEST(TableLogWriterTest, AValueComesToAllOfItsColumns) {
    SmallLog log;
    NameList names({"depth", "A.depth", "itself", "depth", "A.depth", "depth"});
    RecordingTable table(names, false);
    DataAccess* const served = log.declareServing("depth", "A.depth");
    DataAccess* const itself = log.declareServing("itself", "itself");
    EXPECT_EQ(2u, table.write(log.data(served, 0, 1), nullptr));
    EXPECT_EQ(5u, table.write(log.bestData(served, 0, 2), nullptr));
    EXPECT_EQ(1u, table.write(log.data(itself, 0, 3), nullptr));
    EXPECT_EQ(2u, table.write(log.bestData(itself, 0, 4), nullptr));
    table.writeRow();
    EXPECT_EQ("2|2|4|2|2|2", table.rows_.at(0).substr(table.rows_.at(0).find('|') + 1));
}

TEST(TableLogWriterTest, TextsAreNotInterpolatedUnlessHeld) {
    SmallLog log;
    DataAccess* a = log.declare("A.x");
    DataAccess* plain = log.declareText("B.plain");
    DataAccess* held = log.declareText("B.held");
    held->setNoInterpFlag(true);
    DataAccess* read = log.declareReader("C", log.declareText("B.read"));
    NameList names({"A.x", "B.plain", "B.held", "B.read"});
    RecordingTable table(names, true);
    for (int i = 0; i <= 2; ++i) table.write(log.data(a, i, i), nullptr);
    for (const double t : {0., 2.}) {
        table.write(log.text(plain, t, t == 0 ? "p" : "q"), nullptr);
        table.write(log.text(held, t, t == 0 ? "r" : "s"), nullptr);
        table.write(log.text(read, t, t == 0 ? "t" : "u"), nullptr);
    }
    EXPECT_EQ(5u, table.writeFooter());
    EXPECT_EQ((Rows{"0|0|p|r|t", "1|1|-|r|nan", "2|2|q|s|u"}), table.rows_);
}

// A message rides in the row of its time, the last of several; where that row has left, in the next, with its time.
// Pending rows are not lost when the input changes, and the next one may give its names other codes.
TEST(TableLogWriterTest, MessagesAndTheNextInput) {
    SmallLog log;
    NameList names({"A.x", "A.absent"});
    RecordingTable table(names, true);
    table.write(log.data(log.declare("A.x"), 0, 1), nullptr);
    for (const char* message : {"first", "second"}) table.write(log.syslog(0, message), nullptr);
    table.write(log.syslog(1, "alone"), nullptr);
    table.resetInputs();
    SmallLog next(Log::Current());
    DataAccess* other = next.declare("B.y");
    table.write(next.syslog(0.5, "late"), nullptr);
    table.write(next.syslog(4, "early"), nullptr);
    table.write(next.data(next.declare("A.x"), 5, 6), nullptr);  // nothing to interpolate from
    table.write(next.data(other, 5, 7), nullptr);
    table.writeFooter();
    EXPECT_EQ((Rows{"0|1|.second@0", "1|.|.alone@1", "1|.|.late@0.5", "4|.|.early@4", "5|6|."}), table.rows_);
}

// The rule of interpolated rows, step by step over whole rows of cells: slow and plain.
class StepByStep {
public:
    explicit StepByStep(int columns) : columns_(columns), isReader_(columns, false) {}

    void add(const Timestamp& time, int column, double value, bool isWrite, bool hold) {
        const Timestamp t = time < lastTime_ ? lastTime_ : time;
        size_t used = 0;
        while (used < rows_.size() && rows_[used].t < t) ++used;
        if (used == rows_.size() || rows_[used].t != t) {
            rows_.insert(rows_.begin() + static_cast<long>(used), Row{t, std::vector<std::optional<Cell>>(columns_)});
        }
        rows_[used].cells[column] = Cell{value, t, hold};
        fill(used, column, isWrite);
        emitReady(used);
    }
    void emitAll() {
        while (!rows_.empty()) emitFirst();
    }

    Rows emitted_;

private:
    struct Cell {
        double value;
        Timestamp t;
        bool hold;
    };
    struct Row {
        Timestamp t;
        std::vector<std::optional<Cell>> cells;
    };

    void fill(size_t used, int column, bool isWrite) {
        size_t before = used;
        while (before > 0 && !rows_[before - 1].cells[column]) --before;
        if (before == 0) return;
        const Cell& from = *rows_[before - 1].cells[column];
        const Cell& to = *rows_[used].cells[column];
        for (size_t i = before; i < used; ++i) {
            const double line =
                AuvMath::Interpolate1D(rows_[i].t.asDouble(), from.value, to.value, from.t.asDouble(), to.t.asDouble());
            if (!isWrite) isReader_[column] = true;
            const double value = !isWrite ? std::nan("") : from.hold ? from.value : line;
            rows_[i].cells[column] = Cell{value, rows_[i].t, to.hold};
        }
    }
    static bool isComplete(const Row& row) {
        return std::all_of(row.cells.begin(), row.cells.end(), [](const auto& cell) { return cell.has_value(); });
    }
    void emitReady(size_t used) {
        size_t complete = used;
        while (complete > 0 && !isComplete(rows_[complete])) --complete;
        for (; complete > 0; --complete) emitFirst();
    }
    void emitFirst() {
        std::string text = EntryCollector::Seconds(rows_[0].t);
        for (int column = 0; column < columns_; ++column) {
            const auto& cell = rows_[0].cells[column];
            text += "|" + (cell ? EntryCollector::Number(cell->value) : isReader_[column] ? "-" : ".");
        }
        emitted_.push_back(text);
        lastTime_ = rows_[0].t;
        rows_.erase(rows_.begin());
    }

    const int columns_;
    std::vector<Row> rows_;
    std::vector<bool> isReader_;
    Timestamp lastTime_ = Timestamp::NOT_SET_TIME;
};

TEST(TableLogWriterTest, RandomSeriesFollowTheRuleStepByStep) {
    for (unsigned int seed = 1; seed <= 300; ++seed) {
        std::mt19937 random(seed);
        const auto upTo = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned int>(n)); };
        SmallLog log;
        const bool servesItself = seed % 3 == 0;
        DataAccess* written = servesItself ? log.declareServing("A.written", "A.written") : log.declare("A.written");
        DataAccess* held = log.declare("A.held");
        held->setNoInterpFlag(true);
        DataAccess* read = log.declareReader("C", log.declare("A.read"));
        DataAccess* const accesses[] = {written, held, read};
        NameList three({"A.written", "A.held", "A.read"});
        NameList four({"A.written", "A.held", "A.read", "A.absent"});
        NameList& names = seed % 4 == 0 ? four : three;
        log.endDirectory();
        RecordingTable table(names, true);
        if (seed % 2 == 0) table.setRoom({seed % 5 * 40 + 80, PageMemory::RECENT + 1});  // most of the rows in a file
        StepByStep rule(names.count());
        double now = 0;
        for (int i = 0; i < 120; ++i) {
            now += upTo(3) * 0.25;
            const double nearNow = upTo(6) == 0 ? now - upTo(12) * 0.25 : now;  // now and then out of order
            const double orders[] = {nearNow, nearNow, 60 - nearNow, upTo(240) * 0.25};
            const double t = orders[seed / 8 % 4];  // for most forwards, then backwards, or anywhere
            const int column = upTo(3);
            const double value = upTo(100);
            table.write(log.bestData(accesses[column], t + 10, value), nullptr);
            for (int times = servesItself && column == 0 ? 2 : 1; times > 0; --times) {
                rule.add(SmallLog::At(t + 10), column, value, accesses[column]->isWriter(), column == 1);
            }
            ASSERT_EQ(rule.emitted_, table.rows_) << "seed " << seed << ", sample " << i;
        }
        table.writeFooter();
        rule.emitAll();
        ASSERT_EQ(rule.emitted_, table.rows_) << "seed " << seed;
    }
}

// Wherever the file fails, the rows are those of a table that did not, up to some row.
TEST(TableLogWriterTest, RowsThatAreLostEndTheTableBehindWholeOnes) {
    const TempDir dir;
    setenv("TMPDIR", dir.path("").c_str(), 1);
    int lost = 0;
    for (unsigned int seed = 0; seed < 400; ++seed) {
        std::mt19937 random(seed);
        SmallLog log;
        CapturedLog messages;
        Slate::SetLogger(&static_cast<const Logger&>(messages));
        DataAccess* const accesses[] = {log.declare("A.x"), log.declare("A.held"), log.declareText("A.text")};
        accesses[1]->setNoInterpFlag(true);
        NameList names({"A.x", "A.held", "A.text"});
        RecordingTable table(names, true), whole(names, true);
        table.setRoom({seed % 5 * 40 + 80, PageMemory::RECENT + 1});
        const auto upTo = [&random](unsigned int n) { return static_cast<unsigned int>(random() % n); };
        const unsigned int failsAt = 50 + upTo(350);
        for (unsigned int i = 0; i < 400; ++i) {
            const unsigned int column = i < 3 ? i : seed / 4 % 2 == 0 ? upTo(2) : 2 - (upTo(100) != 0);
            const unsigned int times[] = {i, 400 - i, upTo(400), i - i % 3};
            const double t = times[seed % 4];
            if (i == failsAt) NamelessFiles::MakeUnreadable(dir.path(""));
            const DataEntry* const entry =
                column == 2 ? log.text(accesses[2], t, "a") : log.data(accesses[column], t, i);
            for (RecordingTable* const each : {&table, &whole}) each->write(entry, nullptr);
        }
        for (RecordingTable* const each : {&table, &whole}) each->writeFooter();
        lost += !table.isWhole();
        ASSERT_EQ(table.isWhole() ? 0u : 1u, messages.take().size());
        ASSERT_TRUE(table.isWhole() || table.rows_.size() < whole.rows_.size());
        ASSERT_LE(table.rows_.size(), whole.rows_.size());
        ASSERT_TRUE(std::equal(table.rows_.begin(), table.rows_.end(), whole.rows_.begin())) << "seed " << seed;
    }
    unsetenv("TMPDIR");
    EXPECT_LT(100, lost);
}

// For those who look for memory to be given back.
TEST(TableLogWriterTest, WaitingTextsAreHeld) {
    SmallLog log;
    DataAccess* const text = log.declareText("A.text");
    log.declare("A.absent");
    log.endDirectory();
    NameList names({"A.text", "A.absent"});
    RecordingTable table(names, true);
    for (int i = 0; i < 10; ++i) {
        table.write(log.text(text, i, std::string(10000, static_cast<char>('a' + i)).c_str()), nullptr);
    }
    EXPECT_LT(100000u, table.heldBytes());
    table.writeFooter();
    EXPECT_GT(50000u, table.heldBytes());
}

// A table's file is incomplete whether the table stands in it, also behind a writer that asks, or in front of it.
class EarlyEndTest : public OutputFixture {
protected:
    enum Place { INSIDE, BEHIND_A_FILTER, IN_FRONT, PLACES };

    // The file's outcome when `mishap` comes behind the first row and some that wait.
    template <typename Mishap>
    std::shared_ptr<const OutputOutcome> outcomeAfter(Place place, Mishap mishap) {
        TableLogWriter* table = place == IN_FRONT ? nullptr : new TextTableLogWriter(",", requested_, true, true);
        LogWriter* const inside = place == IN_FRONT ? inner(0) : static_cast<LogWriter*>(table);
        FileLogWriter* const file = new FileLogWriter(dir_.path("out").c_str(), inside, false, nullptr);
        LogWriter* outer = file;
        if (place == BEHIND_A_FILTER) outer = new FilterLogWriter(file, requested_, false, RequestedVariables());
        if (place == IN_FRONT) outer = table = new TableLogWriter(file, requested_, true);
        outer->addParent();
        table->setRoom({80, PageMemory::RECENT + 1});
        const std::shared_ptr<const OutputOutcome> outcome = file->getOutcome();
        for (int i = 0; i < 2; ++i) {
            outer->write(log_.data(x_, i, i), nullptr);
            outer->write(log_.data(y_, i, i), nullptr);
        }
        for (int i = 2; i < 100; ++i) outer->write(log_.data(x_, i, i), nullptr);
        mishap(*outer);
        EXPECT_FALSE(outer->isWhole());
        outer->write(log_.data(y_, 100, 100), nullptr);
        LogWriter::Release(outer);
        return outcome;
    }

    DataAccess* const x_ = log_.declare("A.x");
    DataAccess* const y_ = log_.declare("A.y");
    NameList names_{"A.x", "A.y"};
    const RequestedVariables requested_{names_.count(), names_.list(), nullptr};
};

TEST_F(EarlyEndTest, OfRowsThatAreLostTheFileIsIncomplete) {
    for (int place = INSIDE; place < PLACES; ++place) {
        const auto lose = [this](LogWriter& writer) {
            EXPECT_EQ(1, NamelessFiles::MakeUnreadable(dir_.path("")));
            writer.write(log_.data(y_, 99, 99), nullptr);
        };
        EXPECT_TRUE(outcomeAfter(static_cast<Place>(place), lose)->isIncomplete()) << place;
        EXPECT_EQ(Lines{"ERROR Failed to write " + dir_.path("out") + ": a temporary file in " + dir_.path("") +
                        ": Bad file descriptor"},
                  messages_.take());
        if (place == IN_FRONT) continue;
        EXPECT_EQ("Timestamp,EpochSeconds,A.x,A.y\n2012-06-01T12:30:00.000Z,1338553800.000,0.000000,0.000000\n",
                  dir_.read("out"));
    }
}

TEST_F(EarlyEndTest, ForWantOfMemoryTheFileIsIncomplete) {
    for (int place = INSIDE; place < PLACES; ++place) {
        const auto refuse = [](LogWriter& writer) { writer.freeMemory(); };
        EXPECT_TRUE(outcomeAfter(static_cast<Place>(place), refuse)->isIncomplete()) << place;
        EXPECT_EQ(Lines{"ERROR Failed to write " + dir_.path("out") + ": Cannot allocate memory"}, messages_.take());
        EXPECT_EQ(place == IN_FRONT ? 0u : 101u, CountOf(dir_.read("out"), "\n"));
    }
}

}  // namespace
