#pragma once

#include <memory>

#include "logger/entry/DataEntry.h"
#include "logger/entry/SyslogEntry.h"
#include "utils/Timestamp.h"

// The rows of an interpolated table that may still change: one per distinct time, in ascending order.
//
// A sample fills the cell of its own row, and of its column's empty cells back to the column's previous value, which
// lie on the line between the two. A row is ready to leave once a later row, at or before the newest sample's, has no
// empty cell; that complete row stays as the anchor of later interpolation.
//
// What a sample costs does not grow with the number of rows: a row holds its own samples and the number of its filled
// cells, and the cells in between are remembered as the span between two samples and made when their row leaves.
class PendingRows {
public:
    explicit PendingRows(int columnCount);
    ~PendingRows();
    PendingRows(const PendingRows&) = delete;
    PendingRows& operator=(const PendingRows&) = delete;

    // Stores a copy in the row of the entry's time, but not before `earliest`, the time of the row that left last.
    void add(const DataEntry& entry, int column, const Timestamp& earliest);
    void add(const SyslogEntry& entry, const Timestamp& earliest);  // one per row; a later one replaces it

    bool isEmpty() const { return front_ == nullptr; }
    // The oldest row can no longer change. Judged by the last add alone: call it after each.
    bool hasReadyRow() const { return ready_ != nullptr && front_ != ready_; }

    // The oldest row; what the accessors give is borrowed until dropFront (an interpolated cell: until the next call).
    const Timestamp& frontTime() const;
    const DataEntry* frontCell(int column);  // null for an empty cell
    const SyslogEntry* frontSyslog() const;  // null when the row has none
    void dropFront();
    void forgetSamples();  // when all rows have left: nothing to interpolate from

    // The column holds samples that are no writes, or texts: its empty cells are shown as not-a-number.
    bool isReaderColumn(int column) const { return columns_[column].isReader_; }

private:
    struct Row;

    // What stands in the cells between a sample and the one before it in its column.
    enum Fill { NOTHING, INTERPOLATED, NOT_A_NUMBER, HELD };

    struct Sample {
        std::unique_ptr<DataEntry> entry_;
        int column_ = 0;
        Row* row_ = nullptr;
        Sample* nextInRow_ = nullptr;
        Sample* previous_ = nullptr;  // in the column, by time; null also when that one has left
        Sample* next_ = nullptr;
        Fill fill_ = NOTHING;             // of the rows back to previous_ ...
        unsigned long filledBefore_ = 0;  // ... that were made before this serial number
    };
    struct Row {
        Timestamp time_;
        unsigned long serial_ = 0;  // rows are numbered as they are made
        int filledCells_ = 0;
        Sample* samples_ = nullptr;  // owned, linked by nextInRow_
        std::unique_ptr<SyslogEntry> syslog_;
        Row* previous_ = nullptr;
        Row* next_ = nullptr;
    };
    struct Column {
        Sample* first_ = nullptr;  // among the pending rows
        Sample* last_ = nullptr;
        std::unique_ptr<DataEntry> left_;  // the last sample whose row has left; spans may begin there
        bool isReader_ = false;
    };

    Row* rowAt(const Timestamp& time);
    Row* insertRowAfter(Row* previous, const Timestamp& time);
    Sample* sampleAtOrAfter(const Column& column, const Row& row) const;
    Sample* insertSample(Row* row, int column, Sample* successor, std::unique_ptr<DataEntry> entry);
    void settleSpan(Sample* sample);
    void fillBack(Sample* sample);
    Fill fillFor(const DataEntry& before, const DataEntry& after) const;
    void noteComplete(Row* row);
    void judgeReadiness(Row* used);
    const DataEntry* entryBefore(const Sample& sample) const;
    static std::unique_ptr<DataEntry> Between(const Timestamp& t, const DataEntry& before, const Sample& after);

    const int columnCount_;
    std::unique_ptr<Column[]> columns_;
    Row* front_ = nullptr;  // owned rows, linked by next_
    Row* back_ = nullptr;
    Row* anchor_ = nullptr;  // the newest complete row
    Row* ready_ = nullptr;   // the rows before it can leave
    unsigned long nextSerial_ = 0;
    std::unique_ptr<DataEntry> madeCell_;  // the interpolated cell handed out last
};
