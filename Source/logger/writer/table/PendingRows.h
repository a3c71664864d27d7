#pragma once

#include <memory>

#include "logger/entry/DataEntry.h"
#include "logger/entry/SyslogEntry.h"
#include "logger/writer/table/CellForms.h"
#include "logger/writer/table/TimePages.h"

// The rows of an interpolated table that may still change: one per distinct time, in ascending order.
//
// A sample fills the cell of its own row, and of its column's empty cells back to the column's previous value, which
// lie on the line between the two. A row is ready to leave once a later row, at or before the newest sample's, has no
// empty cell; that complete row stays as the anchor of later interpolation.
//
// What a sample costs does not grow with the number of rows, in whatever order the times come, but for its logarithm
// where they jump: a row is its time and the number of its filled cells, a column has its samples, and the cells in
// between are remembered as the span between two samples and made when their row leaves. All of these are plain and lie
// in pages, of which only so many are in memory however many rows wait.
class PendingRows {
public:
    static constexpr PageMemory::Room ROOM = {4096, 16384};  // 64 MB

    PendingRows(int columnCount, const PageMemory::Room& room, PageMemory::Neighbour neighbour);
    ~PendingRows();
    PendingRows(const PendingRows&) = delete;
    PendingRows& operator=(const PendingRows&) = delete;

    // Stores a copy in the row of the entry's time, but not before `earliest`, the time of the row that left last.
    void add(const DataEntry& entry, int column, const Timestamp& earliest);
    void add(const SyslogEntry& entry, const Timestamp& earliest);  // one per row; a later one replaces it

    bool isEmpty() const { return rows_.isEmpty(); }
    size_t heldBytes() const { return memory_.heldBytes() + forms_.textBytes() + messageBytes_; }  // about
    // Something that waited in the file could not be read back: what the other operations give is nothing to go by.
    bool hasLost() const { return memory_.hasLost(); }
    Str lossReason() const { return memory_.lossReason(); }
    // The oldest row can no longer change. Judged by the last add alone: call it after each.
    bool hasReadyRow() { return hasReady_ && !hasLost() && rows_.at(rows_.first()) < ready_; }

    // The oldest row; what the accessors give is borrowed until the next call.
    Timestamp frontTime() { return rows_.at(rows_.first()).time(); }
    const DataEntry* frontCell(int column);  // null for an empty cell, or a lost one
    const SyslogEntry* frontSyslog();        // null when the row has none
    void dropFront();                        // only while there is a row
    void forgetSamples();                    // when all rows have left: nothing to interpolate from

    // The column holds samples that are no writes, or texts: its empty cells are shown as not-a-number.
    bool isReaderColumn(int column) const { return columns_[column]->isReader_; }

private:
    // What stands in the cells between a sample and the one before it in its column.
    enum Fill : int { NOTHING, INTERPOLATED, NOT_A_NUMBER, HELD };

    struct Row : Timed {
        // A cell that is filled in all rows of a page is counted here.
        struct PageNote {
            void summarize(const PageNote* earlier, const PageNote* later);

            int filledCells_ = 0;
            int mostFilledCells_ = 0;   // that a row counts for itself, or more
            bool mayComplete_ = false;  // a row of the page may be complete
            bool mayHold_ = false;      // or one of its tree's pages
        };

        explicit Row(const Timestamp& t) : Timed(t) {}

        int filledCells_ = 0;       // less those of the page
        unsigned long serial_ = 0;  // rows are numbered as they are made
    };
    struct Sample : Timed {
        struct PageNote {
            void summarize(const PageNote*, const PageNote*) {}
        };

        Sample(const Timestamp& t, const CellForms::Cell& cell) : Timed(t), cell_(cell) {}

        Fill fill_ = NOTHING;  // of the rows back to the sample before ...
        CellForms::Cell cell_;
        unsigned long filledBefore_ = 0;  // ... that were made before this serial number
    };
    struct Message : Timed {
        struct PageNote {
            void summarize(const PageNote*, const PageNote*) {}
        };

        explicit Message(const Timestamp& t) : Timed(t) {}

        SyslogEntry* entry_ = nullptr;  // owned
    };
    typedef TimePages<Row> Rows;
    typedef TimePages<Sample> Samples;
    struct Column {
        explicit Column(PageMemory& memory) : samples_(memory) {}

        Samples samples_;                           // of the pending rows
        Sample left_{Timestamp::NOT_SET_TIME, {}};  // the last one whose row has left; spans may begin there
        bool hasLeft_ = false;
        bool isReader_ = false;
    };

    Rows::Place rowAt(const Timestamp& time);
    bool isRepeated(Column& column, const Sample& sample);
    static Samples::Place FirstFrom(Samples& samples, const Timed& time);
    void put(Column& column, const Sample& sample, Rows::Place row);
    void settleSpan(Column& column, Samples::Place end);
    void fillBack(Column& column, Samples::Place place, Rows::Place row);
    void fillRows(Rows::Place last, const Timed& after);
    Fill fillFor(const Sample& before, const Sample& after) const;
    double interpolated(double seconds, const Sample& before, const Sample& after);
    CellForms::Cell between(const Timed& t, const Sample& before, const Sample& after);
    void noteFilled(Rows::Place row);
    void notePage(Rows::Page* page);
    Rows::Place lastCompleteOfPage(Rows::Place last);
    Rows::Place lastCompleteUpTo(Rows::Place row);
    static Rows::Page* LastOfTree(Rows::Page* page);
    void judgeReadiness(Rows::Place used);
    void release(Column& column);

    const int columnCount_;
    PageMemory memory_;
    CellForms forms_;
    Rows rows_;
    TimePages<Message> messages_;
    std::unique_ptr<std::unique_ptr<Column>[]> columns_;
    Timed ready_;  // the rows before it can leave
    bool hasReady_ = false;
    unsigned long nextSerial_ = 0;
    size_t messageBytes_ = 0;
};
