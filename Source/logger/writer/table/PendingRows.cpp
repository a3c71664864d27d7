#include "logger/writer/table/PendingRows.h"

#include <limits>

#include "data/DataAccess.h"
#include "data/DataValue.h"
#include "units/Units.h"
#include "utils/AuvMath.h"

namespace {

const double NOT_NUMBER = std::numeric_limits<double>::quiet_NaN();

const Unit& UnitOf(const DataEntry& entry) {
    const DataValue* value = entry.getDataValue();
    return value == nullptr || value->getUnit() == nullptr ? Units::NONE : *value->getUnit();
}

std::unique_ptr<DataEntry> Copy(const DataEntry& entry, const Timestamp& t) {
    std::unique_ptr<DataEntry> copy(new DataEntry(entry));
    copy->setTimestamp(t);
    return copy;
}

std::unique_ptr<DataEntry> CopyWithNumber(const DataEntry& entry, double number, const Timestamp& t) {
    std::unique_ptr<DataEntry> copy = Copy(entry, t);
    copy->setNumber(UnitOf(entry), number);
    return copy;
}

double Interpolated(const Timestamp& t, const DataEntry& before, const DataEntry& after) {
    const Unit& unit = UnitOf(after);
    return AuvMath::Interpolate1D(t.asDouble(), before.getNumber(unit), after.getNumber(unit),
                                  before.getTimestamp().asDouble(), after.getTimestamp().asDouble());
}

}  // namespace

PendingRows::PendingRows(int columnCount) : columnCount_(columnCount), columns_(new Column[columnCount]) {}

PendingRows::~PendingRows() {
    while (!isEmpty()) dropFront();
}

void PendingRows::add(const DataEntry& entry, int column, const Timestamp& earliest) {
    ready_ = nullptr;
    Row* row = rowAt(entry.getTimestamp() < earliest ? earliest : entry.getTimestamp());
    Sample* sample = sampleAtOrAfter(columns_[column], *row);
    if (sample != nullptr) {
        settleSpan(sample);
        sample = sampleAtOrAfter(columns_[column], *row);  // settling may have put a cell into the row
    }
    std::unique_ptr<DataEntry> copy = Copy(entry, row->time_);
    if (sample != nullptr && sample->row_ == row) {
        if (sample->next_ != nullptr) settleSpan(sample->next_);
        sample->entry_ = std::move(copy);
    } else {
        sample = insertSample(row, column, sample, std::move(copy));
    }
    fillBack(sample);
    judgeReadiness(row);
}

void PendingRows::add(const SyslogEntry& entry, const Timestamp& earliest) {
    ready_ = nullptr;
    Row* row = rowAt(entry.getTimestamp() < earliest ? earliest : entry.getTimestamp());
    row->syslog_.reset(new SyslogEntry(entry));
    judgeReadiness(row);
}

const Timestamp& PendingRows::frontTime() const {
    return front_->time_;
}

const DataEntry* PendingRows::frontCell(int column) {
    const Sample* sample = columns_[column].first_;
    if (sample == nullptr) return nullptr;
    if (sample->row_ == front_) return sample->entry_.get();
    const DataEntry* before = entryBefore(*sample);
    if (sample->fill_ == NOTHING || before == nullptr || front_->serial_ >= sample->filledBefore_) return nullptr;
    madeCell_ = Between(front_->time_, *before, *sample);
    return madeCell_.get();
}

const SyslogEntry* PendingRows::frontSyslog() const {
    return front_->syslog_.get();
}

void PendingRows::dropFront() {
    Row* row = front_;
    while (Sample* sample = row->samples_) {
        Column& column = columns_[sample->column_];
        row->samples_ = sample->nextInRow_;
        column.left_ = std::move(sample->entry_);
        column.first_ = sample->next_;
        if (column.first_ == nullptr) {
            column.last_ = nullptr;
        } else {
            column.first_->previous_ = nullptr;
        }
        delete sample;
    }
    front_ = row->next_;
    if (front_ == nullptr) {
        back_ = nullptr;
    } else {
        front_->previous_ = nullptr;
    }
    if (anchor_ == row) anchor_ = nullptr;
    if (ready_ == row) ready_ = nullptr;
    delete row;
}

void PendingRows::forgetSamples() {
    for (int i = 0; i < columnCount_; ++i) columns_[i].left_.reset();
}

// The row of that time, made when there is none. Entries come nearly in order, so the search begins at the newest.
PendingRows::Row* PendingRows::rowAt(const Timestamp& time) {
    Row* row = back_;
    while (row != nullptr && time < row->time_) row = row->previous_;
    return row != nullptr && row->time_ == time ? row : insertRowAfter(row, time);
}

PendingRows::Row* PendingRows::insertRowAfter(Row* previous, const Timestamp& time) {
    Row* row = new Row;
    row->time_ = time;
    row->serial_ = nextSerial_++;
    row->previous_ = previous;
    row->next_ = previous == nullptr ? front_ : previous->next_;
    (row->previous_ == nullptr ? front_ : row->previous_->next_) = row;
    (row->next_ == nullptr ? back_ : row->next_->previous_) = row;
    return row;
}

// The column's first sample that is not before the row; null when the row comes after all of them.
PendingRows::Sample* PendingRows::sampleAtOrAfter(const Column& column, const Row& row) const {
    Sample* found = nullptr;
    for (Sample* sample = column.last_; sample != nullptr && row.time_ <= sample->row_->time_;
         sample = sample->previous_) {
        found = sample;
    }
    return found;
}

PendingRows::Sample* PendingRows::insertSample(Row* row, int column, Sample* successor,
                                               std::unique_ptr<DataEntry> entry) {
    Column& itsColumn = columns_[column];
    Sample* sample = new Sample;
    sample->entry_ = std::move(entry);
    sample->column_ = column;
    sample->row_ = row;
    sample->nextInRow_ = row->samples_;
    row->samples_ = sample;
    sample->next_ = successor;
    sample->previous_ = successor == nullptr ? itsColumn.last_ : successor->previous_;
    (sample->previous_ == nullptr ? itsColumn.first_ : sample->previous_->next_) = sample;
    (sample->next_ == nullptr ? itsColumn.last_ : sample->next_->previous_) = sample;
    ++row->filledCells_;
    return sample;
}

// Makes the cells between the sample and the one before it real, since what follows may change either end.
void PendingRows::settleSpan(Sample* sample) {
    const Fill fill = sample->fill_;
    const DataEntry* before = entryBefore(*sample);
    const Row* end = sample->previous_ == nullptr ? nullptr : sample->previous_->row_;
    Sample* successor = sample;
    for (Row* row = sample->row_->previous_; fill != NOTHING && before != nullptr && row != end; row = row->previous_) {
        if (row->serial_ >= sample->filledBefore_) continue;
        successor = insertSample(row, sample->column_, successor, Between(row->time_, *before, *sample));
        --row->filledCells_;  // counted when the span was filled
    }
    sample->fill_ = NOTHING;
}

// Fills the column's empty cells between the sample and its predecessor among the pending rows.
void PendingRows::fillBack(Sample* sample) {
    noteComplete(sample->row_);
    if (sample->previous_ == nullptr || sample->previous_->row_ == sample->row_->previous_) return;
    const Fill fill = fillFor(*sample->previous_->entry_, *sample->entry_);
    if (fill == NOTHING || fill == NOT_A_NUMBER) columns_[sample->column_].isReader_ = true;
    if (fill == NOTHING) return;
    sample->fill_ = fill;
    sample->filledBefore_ = nextSerial_;
    for (Row* row = sample->row_->previous_; row != sample->previous_->row_; row = row->previous_) {
        ++row->filledCells_;
        noteComplete(row);
    }
}

PendingRows::Fill PendingRows::fillFor(const DataEntry& before, const DataEntry& after) const {
    if (!after.isDataWrite()) return NOT_A_NUMBER;
    if (before.getDataAccess()->getNoInterpFlag()) return HELD;
    const bool isText = !before.isNumber() && !after.isNumber();
    return isText ? NOTHING : INTERPOLATED;
}

void PendingRows::noteComplete(Row* row) {
    if (row->filledCells_ < columnCount_) return;
    if (anchor_ == nullptr || anchor_->time_ < row->time_) anchor_ = row;
}

// Rows can leave up to the last complete one that is neither the first pending row nor later than the one just used.
void PendingRows::judgeReadiness(Row* used) {
    noteComplete(used);
    if (anchor_ == nullptr) return;
    Row* row = anchor_->time_ < used->time_ ? anchor_ : used;
    while (row != front_ && row->filledCells_ < columnCount_) row = row->previous_;
    if (row != front_) ready_ = row;
}

const DataEntry* PendingRows::entryBefore(const Sample& sample) const {
    return sample.previous_ == nullptr ? columns_[sample.column_].left_.get() : sample.previous_->entry_.get();
}

std::unique_ptr<DataEntry> PendingRows::Between(const Timestamp& t, const DataEntry& before, const Sample& after) {
    switch (after.fill_) {
        case HELD:
            if (!before.isNumber()) return Copy(before, t);
            return CopyWithNumber(*after.entry_, before.getNumber(UnitOf(*after.entry_)), t);
        case NOT_A_NUMBER:
            return CopyWithNumber(*after.entry_, NOT_NUMBER, t);
        default:
            return CopyWithNumber(*after.entry_, Interpolated(t, before, *after.entry_), t);
    }
}
