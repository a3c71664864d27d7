#include "logger/writer/table/PendingRows.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "data/DataAccess.h"
#include "utils/AuvMath.h"

static const double NOT_NUMBER = std::numeric_limits<double>::quiet_NaN();

static size_t BytesOf(const SyslogEntry* entry) {
    return entry == nullptr ? 0 : sizeof *entry + entry->getMessage().length();
}

PendingRows::PendingRows(int columnCount, const PageMemory::Room& room, PageMemory::Neighbour neighbour)
    : columnCount_(columnCount),
      memory_(room, std::move(neighbour)),
      rows_(memory_),
      messages_(memory_),
      columns_(new std::unique_ptr<Column>[columnCount]) {
    for (int i = 0; i < columnCount; ++i) columns_[i].reset(new Column(memory_));
}

PendingRows::~PendingRows() {
    while (!isEmpty()) dropFront();
    forgetSamples();
}

void PendingRows::add(const DataEntry& entry, int column, const Timestamp& earliest) {
    hasReady_ = false;
    const Timestamp t = std::max(entry.getTimestamp(), earliest);
    const Rows::Place row = rowAt(t);
    const Sample sample(t, forms_.keep(entry));
    if (isRepeated(*columns_[column], sample)) {
        forms_.release(sample.cell_);
    } else {
        put(*columns_[column], sample, row);
    }
    judgeReadiness(row);
}

void PendingRows::add(const SyslogEntry& entry, const Timestamp& earliest) {
    hasReady_ = false;
    const Timestamp t = std::max(entry.getTimestamp(), earliest);
    const Rows::Place row = rowAt(t);
    TimePages<Message>::Place place = messages_.lastUpTo(Timed(t));
    if (!place || messages_.at(place) != Timed(t)) place = messages_.insertAfter(place, Message(t));
    SyslogEntry*& kept = messages_.at(place).entry_;
    messageBytes_ -= BytesOf(kept);
    delete std::exchange(kept, new SyslogEntry(entry));
    messageBytes_ += BytesOf(kept);
    judgeReadiness(row);
}

const DataEntry* PendingRows::frontCell(int index) {
    Column& column = *columns_[index];
    const Samples::Place place = column.samples_.first();
    if (!place) return nullptr;
    const Row& front = rows_.at(rows_.first());
    const Sample& sample = column.samples_.at(place);
    if (hasLost()) return nullptr;
    if (sample == front) return forms_.entry(sample.cell_, front.time());
    if (sample.fill_ == NOTHING || !column.hasLeft_ || front.serial_ >= sample.filledBefore_) return nullptr;
    const CellForms::Cell made = between(front, column.left_, sample);
    const DataEntry* const entry = forms_.entry(made, front.time());
    forms_.release(made);
    return entry;
}

const SyslogEntry* PendingRows::frontSyslog() {
    const TimePages<Message>::Place place = messages_.first();
    const bool isHere = place && messages_.at(place) == rows_.at(rows_.first());
    return isHere ? messages_.at(place).entry_ : nullptr;
}

void PendingRows::dropFront() {
    const Timed front = rows_.at(rows_.first());
    for (int i = 0; i < columnCount_; ++i) {
        Column& column = *columns_[i];
        if (column.samples_.isEmpty() || column.samples_.at(column.samples_.first()) != front) continue;
        release(column);
        column.left_ = column.samples_.at(column.samples_.first());
        column.hasLeft_ = true;
        column.samples_.dropFirst();
    }
    if (const SyslogEntry* const message = frontSyslog()) {
        messageBytes_ -= BytesOf(message);
        delete message;
        messages_.dropFirst();
    }
    rows_.dropFirst();
}

void PendingRows::release(Column& column) {
    if (column.hasLeft_) forms_.release(column.left_.cell_);
    column.hasLeft_ = false;
}

void PendingRows::forgetSamples() {
    for (int i = 0; i < columnCount_; ++i) release(*columns_[i]);
    forms_.forget();
}

// The row of that time, made when there is none.
PendingRows::Rows::Place PendingRows::rowAt(const Timestamp& t) {
    Row row(t);
    const Rows::Place previous = rows_.lastUpTo(row);
    if (previous && rows_.at(previous) == row) return previous;
    row.serial_ = nextSerial_++;
    const Rows::Place place = rows_.insertAfter(previous, row);
    rows_.at(place).filledCells_ = -place.page_->filledCells_;
    return place;
}

// The column has that very sample, and no row has come since: it changes nothing. A variable that serves itself brings
// each of its samples twice.
bool PendingRows::isRepeated(Column& column, const Sample& sample) {
    const Samples::Place place = column.samples_.lastUpTo(sample);
    if (!place) return false;
    const Sample& last = column.samples_.at(place);
    return last == sample && last.filledBefore_ == nextSerial_ && forms_.areSame(last.cell_, sample.cell_);
}

void PendingRows::put(Column& column, const Sample& sample, Rows::Place row) {
    Samples& samples = column.samples_;
    settleSpan(column, FirstFrom(samples, sample));
    Samples::Place place = samples.lastUpTo(sample);  // settling may have put a cell into the row
    if (place && samples.at(place) == sample) {
        settleSpan(column, samples.next(place));
        place = samples.lastUpTo(sample);
        if (!place) return forms_.release(sample.cell_);  // it is lost
        forms_.release(std::exchange(samples.at(place).cell_, sample.cell_));
    } else {
        place = samples.insertAfter(place, sample);
        noteFilled(row);
    }
    fillBack(column, place, row);
    samples.at(place).filledBefore_ = nextSerial_;
}

// The first that is not before the time; nowhere when the time comes after all of them.
PendingRows::Samples::Place PendingRows::FirstFrom(Samples& samples, const Timed& time) {
    const Samples::Place last = samples.lastUpTo(time);
    if (!last) return samples.first();
    return samples.at(last) == time ? last : samples.next(last);
}

// Makes the cells between the sample and the one before it real, since what follows may change either end.
void PendingRows::settleSpan(Column& column, Samples::Place end) {
    if (!end || column.samples_.at(end).fill_ == NOTHING) return;
    Samples::Place place = column.samples_.previous(end);
    if (!place && !column.hasLeft_) return;
    const Sample before = place ? column.samples_.at(place) : column.left_;
    const Sample after = column.samples_.at(end);
    column.samples_.at(end).fill_ = NOTHING;
    for (Rows::Place at = place ? rows_.firstAfter(before) : rows_.first(); at && rows_.at(at) < after;
         at = rows_.next(at)) {
        const Row row = rows_.at(at);
        if (row.serial_ >= after.filledBefore_) continue;
        place = column.samples_.insertAfter(place, Sample(row.time(), between(row, before, after)));
    }
}

// Fills the column's empty cells between the sample and its predecessor among the pending rows.
void PendingRows::fillBack(Column& column, Samples::Place place, Rows::Place row) {
    const Samples::Place previous = column.samples_.previous(place);
    if (!previous) return;
    const Sample before = column.samples_.at(previous);
    const Rows::Place gap = rows_.previous(row);
    if (!gap || rows_.at(gap) == before) return;
    Sample& sample = column.samples_.at(place);
    const Fill fill = fillFor(before, sample);
    if (fill == NOTHING || fill == NOT_A_NUMBER) column.isReader_ = true;
    sample.fill_ = fill;
    if (fill != NOTHING) fillRows(gap, before);
}

// From the last one back to that after the time.
void PendingRows::fillRows(Rows::Place last, const Timed& after) {
    while (last) {
        Rows::Page* const page = last.page_;
        if (after < page->first_ && last.index_ + 1 == page->count()) {
            ++page->filledCells_;
            notePage(page);
            last = rows_.lastOf(page->previous_);
        } else if (after < rows_.at(last)) {
            noteFilled(last);
            last = rows_.previous(last);
        } else {
            return;
        }
    }
}

PendingRows::Fill PendingRows::fillFor(const Sample& before, const Sample& after) const {
    if (!forms_.example(after.cell_).isDataWrite()) return NOT_A_NUMBER;
    if (forms_.example(before.cell_).getDataAccess()->getNoInterpFlag()) return HELD;
    const bool isText = !forms_.isNumber(before.cell_) && !forms_.isNumber(after.cell_);
    return isText ? NOTHING : INTERPOLATED;
}

void PendingRows::Row::PageNote::summarize(const PageNote* earlier, const PageNote* later) {
    mayHold_ = mayComplete_ || (earlier != nullptr && earlier->mayHold_) || (later != nullptr && later->mayHold_);
}

void PendingRows::noteFilled(Rows::Place row) {
    Rows::Page* const page = row.page_;
    page->mostFilledCells_ = std::max(page->mostFilledCells_, ++rows_.at(row).filledCells_);
    notePage(page);
}

void PendingRows::notePage(Rows::Page* page) {
    if (page->mayComplete_ || page->mostFilledCells_ + page->filledCells_ < columnCount_) return;
    page->mayComplete_ = true;
    rows_.raise(page);
}

// The last complete row at or before the row; nowhere when there is none.
PendingRows::Rows::Place PendingRows::lastCompleteUpTo(Rows::Place row) {
    Rows::Place found = lastCompleteOfPage(row);
    while (!found) {
        rows_.raise(row.page_);
        Rows::Page* const page = LastOfTree(row.page_->earlier_);
        if (page == nullptr) return {};
        rows_.raise(page);
        found = lastCompleteOfPage(rows_.lastOf(page));
    }
    return found;
}

// The last page of the tree that may have a complete row; null when there is none.
PendingRows::Rows::Page* PendingRows::LastOfTree(Rows::Page* page) {
    while (page != nullptr && page->mayHold_) {
        const bool isLater = page->later_ != nullptr && page->later_->mayHold_;
        if (!isLater && page->mayComplete_) return page;
        page = isLater ? page->later_ : page->earlier_;
    }
    return nullptr;
}

PendingRows::Rows::Place PendingRows::lastCompleteOfPage(Rows::Place last) {
    Rows::Page* const page = last.page_;
    if (!page->mayComplete_) return {};
    int most = std::numeric_limits<int>::min();
    for (Rows::Place row = last; row.page_ == page; row = rows_.previous(row)) {
        const int filled = rows_.at(row).filledCells_;
        if (filled + page->filledCells_ >= columnCount_) return row;
        most = std::max(most, filled);
    }
    if (last.index_ + 1 == page->count()) {
        page->mostFilledCells_ = most;
        page->mayComplete_ = false;
        rows_.raise(page);
    }
    return {};
}

// Rows can leave up to the last complete one that is neither the first pending row nor later than the one just used.
void PendingRows::judgeReadiness(Rows::Place used) {
    notePage(used.page_);
    const Rows::Place complete = lastCompleteUpTo(used);
    hasReady_ = complete && rows_.at(rows_.first()) < rows_.at(complete);
    if (hasReady_) ready_ = rows_.at(complete);
}

CellForms::Cell PendingRows::between(const Timed& t, const Sample& before, const Sample& after) {
    switch (after.fill_) {
        case HELD:
            if (!forms_.isNumber(before.cell_)) return forms_.share(before.cell_);
            return forms_.withNumber(after.cell_, forms_.number(before.cell_, forms_.unit(after.cell_)));
        case NOT_A_NUMBER:
            return forms_.withNumber(after.cell_, NOT_NUMBER);
        default:
            return forms_.withNumber(after.cell_, interpolated(t.time().asDouble(), before, after));
    }
}

double PendingRows::interpolated(double seconds, const Sample& before, const Sample& after) {
    const Unit& unit = forms_.unit(after.cell_);
    return AuvMath::Interpolate1D(seconds, forms_.number(before.cell_, unit), forms_.number(after.cell_, unit),
                                  before.time().asDouble(), after.time().asDouble());
}
