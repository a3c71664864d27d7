#pragma once

#include <memory>

#include "logger/entry/DataEntry.h"
#include "logger/entry/SyslogEntry.h"
#include "logger/writer/table/TimeOrder.h"

// The rows of an interpolated table that may still change: one per distinct time, in ascending order.
//
// A sample fills the cell of its own row, and of its column's empty cells back to the column's previous value, which
// lie on the line between the two. A row is ready to leave once a later row, at or before the newest sample's, has no
// empty cell; that complete row stays as the anchor of later interpolation.
//
// What a sample costs does not grow with the number of rows, in whatever order the times come, but for its logarithm
// where they jump: a row holds its own samples and the number of its filled cells, and the cells in between are
// remembered as the span between two samples and made when their row leaves. A text or array that comes again is kept
// once, since a few bytes of a log can repeat one of any length.
class PendingRows {
public:
    explicit PendingRows(int columnCount);
    ~PendingRows();
    PendingRows(const PendingRows&) = delete;
    PendingRows& operator=(const PendingRows&) = delete;

    // Stores a copy in the row of the entry's time, but not before `earliest`, the time of the row that left last.
    void add(const DataEntry& entry, int column, const Timestamp& earliest);
    void add(const SyslogEntry& entry, const Timestamp& earliest);  // one per row; a later one replaces it

    bool isEmpty() const { return rows_.isEmpty(); }
    size_t heldBytes() const { return rowCount_ * ROW_BYTES; }  // about
    // The oldest row can no longer change. Judged by the last add alone: call it after each.
    bool hasReadyRow() const { return ready_ != nullptr && rows_.first() != ready_; }

    // The oldest row; what the accessors give is borrowed until dropFront (an interpolated cell: until the next call).
    const Timestamp& frontTime() const;
    const DataEntry* frontCell(int column);  // null for an empty cell
    const SyslogEntry* frontSyslog() const;  // null when the row has none
    void dropFront();                        // only while there is a row
    void forgetSamples();                    // when all rows have left: nothing to interpolate from

    // The column holds samples that are no writes, or texts: its empty cells are shown as not-a-number.
    bool isReaderColumn(int column) const { return columns_[column].isReader_; }

private:
    struct Row;

    // What stands in the cells between a sample and the one before it in its column.
    enum Fill { NOTHING, INTERPOLATED, NOT_A_NUMBER, HELD };

    typedef std::shared_ptr<DataValue> Text;  // or array
    struct Cell {
        Text text_;  // that the entry borrows; null for one with a number of its own
        std::unique_ptr<DataEntry> entry_;
    };
    // In its column; previous_ is null also when that one has left.
    struct Sample : TimeOrdered<Sample> {
        const Timestamp& time() const { return row_->time(); }

        Cell cell_;
        int column_ = 0;
        Row* row_ = nullptr;
        Sample* nextInRow_ = nullptr;
        Fill fill_ = NOTHING;             // of the rows back to previous_ ...
        unsigned long filledBefore_ = 0;  // ... that were made before this serial number
    };
    struct Row : TimeOrdered<Row> {
        const Timestamp& time() const { return time_; }
        void summarize();

        Timestamp time_;
        unsigned long serial_ = 0;  // rows are numbered as they are made
        int filledCells_ = 0;
        bool isComplete_ = false;
        bool hasComplete_ = false;   // a row of its tree is complete
        Sample* samples_ = nullptr;  // owned, linked by nextInRow_
        std::unique_ptr<SyslogEntry> syslog_;
    };
    struct Column {
        TimeOrder<Sample> samples_;  // of the pending rows
        Cell left_;                  // the last sample whose row has left; spans may begin there
        bool isReader_ = false;
    };

    Row* rowAt(const Timestamp& time);
    static Sample* SampleAtOrAfter(TimeOrder<Sample>& samples, const Timestamp& time);
    Sample* insertSample(Row* row, int column, Sample* previous, Cell cell);
    Cell keep(const DataEntry& entry, const Timestamp& t);
    const Text& textOf(const DataEntry& entry);
    void settleSpan(Sample* sample);
    void fillBack(Sample* sample);
    Fill fillFor(const DataEntry& before, const DataEntry& after) const;
    void noteComplete(Row* row);
    Row* lastCompleteUpTo(Row* row);
    void judgeReadiness(Row* used);
    const Cell& cellBefore(const Sample& sample) const;
    static Cell Between(const Timestamp& t, const Cell& before, const Sample& after);

    const int columnCount_;
    std::unique_ptr<Column[]> columns_;
    static const size_t ROW_BYTES = 300;  // with its samples, in a table of few columns

    TimeOrder<Row> rows_;  // owned
    size_t rowCount_ = 0;
    Row* ready_ = nullptr;  // the rows before it can leave
    unsigned long nextSerial_ = 0;
    Cell madeCell_;                   // the interpolated cell handed out last
    std::unique_ptr<Text[]> latest_;  // by element code; null before the first text
};
