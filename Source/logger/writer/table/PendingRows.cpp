#include "logger/writer/table/PendingRows.h"

#include <limits>

#include "data/DataAccess.h"
#include "data/DataValue.h"
#include "utils/AuvMath.h"

namespace {

const double NOT_NUMBER = std::numeric_limits<double>::quiet_NaN();

std::unique_ptr<DataEntry> At(const Timestamp& t, DataEntry* entry) {
    entry->setTimestamp(t);
    return std::unique_ptr<DataEntry>(entry);
}

std::unique_ptr<DataEntry> CopyWithNumber(const DataEntry& entry, double number, const Timestamp& t) {
    std::unique_ptr<DataEntry> copy = At(t, new DataEntry(entry, entry.getDataValue()));
    copy->setNumber(entry.valueUnit(), number);
    return copy;
}

double Interpolated(const Timestamp& t, const DataEntry& before, const DataEntry& after) {
    const Unit& unit = after.valueUnit();
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
    Row* const row = rowAt(entry.getTimestamp() < earliest ? earliest : entry.getTimestamp());
    TimeOrder<Sample>& samples = columns_[column].samples_;
    if (Sample* const following = SampleAtOrAfter(samples, row->time())) settleSpan(following);
    Sample* sample = samples.lastUpTo(row->time());  // settling may have put a cell into the row
    Cell cell = keep(entry, row->time());
    if (sample != nullptr && sample->row_ == row) {
        if (sample->next_ != nullptr) settleSpan(sample->next_);
        sample->cell_ = std::move(cell);
    } else {
        sample = insertSample(row, column, sample, std::move(cell));
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
    return rows_.first()->time();
}

const DataEntry* PendingRows::frontCell(int column) {
    const Row* const front = rows_.first();
    const Sample* sample = columns_[column].samples_.first();
    if (sample == nullptr) return nullptr;
    if (sample->row_ == front) return sample->cell_.entry_.get();
    const Cell& before = cellBefore(*sample);
    if (sample->fill_ == NOTHING || before.entry_ == nullptr || front->serial_ >= sample->filledBefore_) return nullptr;
    madeCell_ = Between(front->time(), before, *sample);
    return madeCell_.entry_.get();
}

const SyslogEntry* PendingRows::frontSyslog() const {
    return rows_.first()->syslog_.get();
}

void PendingRows::dropFront() {
    Row* const row = rows_.first();
    while (Sample* sample = row->samples_) {
        Column& column = columns_[sample->column_];
        row->samples_ = sample->nextInRow_;
        column.left_ = std::move(sample->cell_);
        column.samples_.dropFirst();
        delete sample;
    }
    rows_.dropFirst();
    --rowCount_;
    if (ready_ == row) ready_ = nullptr;
    delete row;
}

void PendingRows::forgetSamples() {
    for (int i = 0; i < columnCount_; ++i) columns_[i].left_ = Cell();
    madeCell_ = Cell();
    latest_.reset();
}

// The row of that time, made when there is none.
PendingRows::Row* PendingRows::rowAt(const Timestamp& time) {
    Row* const previous = rows_.lastUpTo(time);
    if (previous != nullptr && previous->time() == time) return previous;
    Row* const row = new Row;
    row->time_ = time;
    row->serial_ = nextSerial_++;
    rows_.insertAfter(previous, row);
    ++rowCount_;
    return row;
}

// The first of a column's samples that is not before the time; null when the time comes after all of them.
PendingRows::Sample* PendingRows::SampleAtOrAfter(TimeOrder<Sample>& samples, const Timestamp& time) {
    Sample* const last = samples.lastUpTo(time);
    if (last == nullptr) return samples.first();
    return last->time() == time ? last : last->next_;
}

PendingRows::Sample* PendingRows::insertSample(Row* row, int column, Sample* previous, Cell cell) {
    Sample* sample = new Sample;
    sample->cell_ = std::move(cell);
    sample->column_ = column;
    sample->row_ = row;
    sample->nextInRow_ = row->samples_;
    row->samples_ = sample;
    columns_[column].samples_.insertAfter(previous, sample);
    ++row->filledCells_;
    return sample;
}

PendingRows::Cell PendingRows::keep(const DataEntry& entry, const Timestamp& t) {
    if (entry.getDataValue() == nullptr || entry.isNumber()) return {nullptr, At(t, new DataEntry(entry))};
    const Text& text = textOf(entry);
    return {text, At(t, new DataEntry(entry, text.get()))};
}

// The latest text or array of the element, as far as it still is that.
const PendingRows::Text& PendingRows::textOf(const DataEntry& entry) {
    if (latest_ == nullptr) latest_.reset(new Text[ElementURI::NUM_CODES]);
    Text& latest = latest_[entry.getElementCode()];
    const DataValue& value = *entry.getDataValue();
    const bool isLatest = latest != nullptr && latest->getUnit() == value.getUnit() && latest->equals(value);
    if (!isLatest) latest.reset(value.copy());
    return latest;
}

// Makes the cells between the sample and the one before it real, since what follows may change either end.
void PendingRows::settleSpan(Sample* sample) {
    const Fill fill = sample->fill_;
    const Cell& before = cellBefore(*sample);
    const Row* end = sample->previous_ == nullptr ? nullptr : sample->previous_->row_;
    Sample* const previous = sample->previous_;
    for (Row* row = sample->row_->previous_; fill != NOTHING && before.entry_ != nullptr && row != end;
         row = row->previous_) {
        if (row->serial_ >= sample->filledBefore_) continue;
        insertSample(row, sample->column_, previous, Between(row->time(), before, *sample));
        --row->filledCells_;  // counted when the span was filled
    }
    sample->fill_ = NOTHING;
}

// Fills the column's empty cells between the sample and its predecessor among the pending rows.
void PendingRows::fillBack(Sample* sample) {
    noteComplete(sample->row_);
    if (sample->previous_ == nullptr || sample->previous_->row_ == sample->row_->previous_) return;
    const Fill fill = fillFor(*sample->previous_->cell_.entry_, *sample->cell_.entry_);
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

void PendingRows::Row::summarize() {
    hasComplete_ =
        isComplete_ || (earlier_ != nullptr && earlier_->hasComplete_) || (later_ != nullptr && later_->hasComplete_);
}

void PendingRows::noteComplete(Row* row) {
    if (row->isComplete_ || row->filledCells_ < columnCount_) return;
    row->isComplete_ = true;
    rows_.raise(row);
}

// The last complete row at or before the row; null when there is none.
PendingRows::Row* PendingRows::lastCompleteUpTo(Row* row) {
    rows_.raise(row);
    if (row->isComplete_) return row;
    Row* found = row->earlier_;
    if (found == nullptr || !found->hasComplete_) return nullptr;
    for (bool isHere = false; !isHere;) {
        const bool isLater = found->later_ != nullptr && found->later_->hasComplete_;
        isHere = !isLater && found->isComplete_;
        if (!isHere) found = isLater ? found->later_ : found->earlier_;
    }
    rows_.raise(found);
    return found;
}

// Rows can leave up to the last complete one that is neither the first pending row nor later than the one just used.
void PendingRows::judgeReadiness(Row* used) {
    noteComplete(used);
    Row* const complete = lastCompleteUpTo(used);
    if (complete != rows_.first()) ready_ = complete;
}

const PendingRows::Cell& PendingRows::cellBefore(const Sample& sample) const {
    return sample.previous_ == nullptr ? columns_[sample.column_].left_ : sample.previous_->cell_;
}

PendingRows::Cell PendingRows::Between(const Timestamp& t, const Cell& before, const Sample& after) {
    const DataEntry& first = *before.entry_;
    const DataEntry& last = *after.cell_.entry_;
    switch (after.fill_) {
        case HELD:
            if (!first.isNumber()) return {before.text_, At(t, new DataEntry(first, before.text_.get()))};
            return {nullptr, CopyWithNumber(last, first.getNumber(last.valueUnit()), t)};
        case NOT_A_NUMBER:
            return {nullptr, CopyWithNumber(last, NOT_NUMBER, t)};
        default:
            return {nullptr, CopyWithNumber(last, Interpolated(t, first, last), t)};
    }
}
