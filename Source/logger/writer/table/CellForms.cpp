#include "logger/writer/table/CellForms.h"

#include <algorithm>
#include <cmath>
#include <typeinfo>

#include "data/DataAccess.h"
#include "data/StrValue.h"
#include "units/Units.h"
#include "utils/AuvMath.h"

namespace {

const StrValue& TextIn(const DataEntry& entry) {
    return static_cast<const StrValue&>(*entry.getDataValue());
}

double BaseNumber(const DataValue& value) {
    double number = 0;
    value.copyTo(value.getBaseUnit(), number);
    return number;
}

}  // namespace

CellForms::Cell CellForms::keep(const DataEntry& entry) {
    const Form& form = *formOf(entry);
    Cell cell;
    cell.form_ = form.index_;
    if (form.isText_) {
        cell.text_ = textOf(entry);
        ++cell.text_->uses_;
    } else if (entry.getDataValue() != nullptr) {
        cell.number_ = BaseNumber(*entry.getDataValue());
    }
    return cell;
}

CellForms::Cell CellForms::share(const Cell& cell) const {
    if (isText(cell) && cell.text_ != nullptr) ++cell.text_->uses_;
    return cell;
}

void CellForms::release(const Cell& cell) {
    if (isText(cell) && cell.text_ != nullptr) release(cell.text_);
}

void CellForms::release(Text* text) {
    if (--text->uses_ == 0) drop(text);
}

void CellForms::drop(Text* text) {
    *text->link_ = text->next_;
    if (text->next_ != nullptr) text->next_->link_ = text->link_;
    textBytes_ -= text->bytes_.length();
    delete text;
}

CellForms::Text* CellForms::newText(const Str& bytes) {
    textBytes_ += bytes.length();
    texts_ = new Text{bytes, 1, &texts_, texts_};
    if (texts_->next_ != nullptr) texts_->next_->link_ = &texts_->next_;
    return texts_;
}

void CellForms::forget() {
    for (Text* text = texts_; text != nullptr;) {
        Text* const next = text->next_;
        drop(text);
        text = next;
    }
    latest_.reset();
    buckets_.reset();
    forms_.clear();
}

const DataEntry* CellForms::entry(const Cell& cell, const Timestamp& t) const {
    const Form& form = this->form(cell);
    DataValue* const value = form.entry_->getDataValue();
    form.entry_->setTimestamp(t);
    if (form.isText_) {
        static_cast<StrValue*>(value)->setFrom(cell.text_ == nullptr ? Str::EMPTY_STR : cell.text_->bytes_);
    } else if (value != nullptr) {
        value->setFrom(value->getBaseUnit(), cell.number_);
    }
    return form.entry_.get();
}

double CellForms::number(const Cell& cell, const Unit& unit) const {
    return entry(cell, form(cell).entry_->getTimestamp())->getNumber(unit);
}

const Unit& CellForms::unit(const Cell& cell) const {
    return example(cell).valueUnit();
}

bool CellForms::areSame(const Cell& a, const Cell& b) const {
    if (a.form_ != b.form_) return false;
    return isText(a) ? a.text_ == b.text_ : AuvMath::AreSameBits(a.number_, b.number_);
}

CellForms::Cell CellForms::withNumber(const Cell& cell, double number) {
    Form& form = *forms_.at(cell.form_);
    DataValue* const value = form.entry_->getDataValue();
    Cell made;
    if (value != nullptr && !form.isText_) {
        value->setFrom(form.entry_->valueUnit(), number);
        made.form_ = form.index_;
        made.number_ = BaseNumber(*value);
        if (!std::isnan(number) || value->isNaN()) return made;
    }
    DataEntry asDouble(*form.entry_, value);
    asDouble.setNumber(form.entry_->valueUnit(), number);
    if (form.doubles_ == nullptr) form.doubles_ = formOf(asDouble);
    made.form_ = form.doubles_->index_;
    made.number_ = BaseNumber(*asDouble.getDataValue());
    return made;
}

CellForms::Form* CellForms::formOf(const DataEntry& entry) {
    if (buckets_ == nullptr) buckets_.reset(new Form*[BUCKETS]());
    Form*& bucket = buckets_[entry.getDataAccess()->getCode() % BUCKETS];
    for (Form* form = bucket; form != nullptr; form = form->nextOfBucket_) {
        if (Stands(*form->entry_, entry)) return form;
    }
    Form* const form = new Form;
    form->entry_.reset(new DataEntry(entry));
    form->isText_ = entry.getDataValue() != nullptr && !entry.isNumber();
    form->nextOfBucket_ = bucket;
    form->index_ = forms_.size();
    forms_.push(form);
    return bucket = form;
}

bool CellForms::Stands(const DataEntry& example, const DataEntry& entry) {
    if (example.getDataAccess() != entry.getDataAccess() || example.isBest() != entry.isBest() ||
        example.isChanged() != entry.isChanged()) {
        return false;
    }
    const DataValue* const a = example.getDataValue();
    const DataValue* const b = entry.getDataValue();
    if (a == nullptr || b == nullptr) return a == b;
    return typeid(*a) == typeid(*b) && a->getUnit() == b->getUnit() && a->getBinaryType() == b->getBinaryType();
}

// The latest text or array of the element, as far as it still is that. Codes that no name can have share a place.
CellForms::Text* CellForms::textOf(const DataEntry& entry) {
    if (latest_ == nullptr) latest_.reset(new Text*[ElementURI::NUM_CODES + 1]());
    Text*& latest = latest_[std::min<size_t>(entry.getElementCode(), ElementURI::NUM_CODES)];
    const Str& bytes = TextIn(entry).getValue();
    if (latest != nullptr && latest->bytes_ == bytes) return latest;
    if (latest != nullptr) release(latest);
    return latest = newText(bytes);
}
