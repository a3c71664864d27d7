#include "logger/writer/matlab/MatlabLeaf.h"

#include <limits>
#include <memory>

#include "data/BlobValue.h"
#include "logger/entry/DataEntry.h"
#include "logger/writer/PaddingLimit.h"
#include "logger/writer/matlab/MatlabCells.h"
#include "logger/writer/matlab/MatlabForm.h"
#include "logger/writer/matlab/MatlabTree.h"
#include "utils/Utf8.h"

// What the values are to Matlab, by content.
static const char* const CLASSES[] = {MatlabForm::DOUBLE_CLASS, MatlabForm::NO_CLASS, MatlabForm::CELL_CLASS};

MatlabLeaf::MatlabLeaf(Hdf5Group& group, MatlabCells& cells, const Str& name, const Description& description)
    : group_(group), cells_(cells), description_(description) {
    group_.addAtt("name", name);
    MatlabForm::AddText(group_, MatlabTree::UNITS, description_.unit_->getAbbreviation());
}

bool MatlabLeaf::add(const DataEntry& entry, PaddingLimit& padding) {
    if (!admits(entry, padding)) return false;
    if (times_ == nullptr) begin();
    times_->add(description_.timeUnit_->getScaled(entry.getTimestamp().asDouble()));
    switch (description_.content_) {
        case NUMBERS:
            fillRecord(entry, numbers_->addRecord());
            break;
        case TEXTS:
            texts_->add(Utf8::Sanitized(entry.getDataValueString(nullptr, true), Utf8::REPLACE_NUL));
            break;
        case CELLS:
            references_->add(addCell(entry));
    }
    return true;
}

bool MatlabLeaf::admits(const DataEntry& entry, PaddingLimit& padding) const {
    if (description_.content_ != NUMBERS || description_.rank_ == 0) return true;
    const size_t elements = shape().elements();
    const size_t room =
        numbers_ == nullptr ? Hdf5NumberColumn::ChunkBytes(elements * sizeof(double)) : numbers_->newRoom();
    return padding.admits(entry, room, elements);
}

Hdf5Shape MatlabLeaf::shape() const {
    Hdf5Shape shape;
    for (int i = description_.rank_; i > 0; --i) shape.dims_[shape.rank_++] = description_.dims_[i - 1];
    return shape;
}

// The columns, once there is something for them.
void MatlabLeaf::begin() {
    times_ = &group_.addNumberColumn(MatlabTree::TIME);
    MatlabForm::MarkClass(*times_, MatlabForm::DOUBLE_CLASS);
    describeTime(*times_);
    if (description_.content_ == NUMBERS) {
        numbers_ = &group_.addNumberColumn(MatlabTree::VALUE, shape());
        MatlabForm::MarkClass(*numbers_, MatlabForm::DOUBLE_CLASS);
        describe(*numbers_);
    } else if (description_.content_ == TEXTS) {
        texts_ = &group_.addTextColumn(MatlabTree::VALUE);
        describe(*texts_);
    } else {
        references_ = &group_.addReferenceColumn(MatlabTree::VALUE);
        MatlabForm::MarkClass(*references_, MatlabForm::CELL_CLASS);
        describe(*references_);
    }
}

void MatlabLeaf::describe(Hdf5Item& value) const {
    value.addAtt("units", description_.unit_->getAbbreviation());
    if (!description_.standardName_.isEmpty()) value.addAtt("standard_name", description_.standardName_);
}

void MatlabLeaf::describeTime(Hdf5Item& time) const {
    time.addAtt("units", description_.timeUnit_->getAbbreviation());
}

void MatlabLeaf::fillRecord(const DataEntry& entry, double* record) const {
    if (record == nullptr) return;
    if (description_.rank_ == 0) {
        *record = entry.getNumber(*description_.unit_);
    } else {
        fillArray(dynamic_cast<const BlobValue*>(entry.getDataValue()), record);
    }
}

// The log has the last index fastest, Matlab the first. What the blob does not hold is NaN.
void MatlabLeaf::fillArray(const BlobValue* blob, double* record) const {
    const size_t d1 = description_.dims_[0];
    const size_t d2 = description_.rank_ > 1 ? description_.dims_[1] : 1;
    const size_t d3 = description_.rank_ > 2 ? description_.dims_[2] : 1;
    for (size_t k = 0; k < d3; ++k) {
        for (size_t j = 0; j < d2; ++j) {
            for (size_t i = 0; i < d1; ++i, ++record) {
                *record = std::numeric_limits<double>::quiet_NaN();
                if (blob != nullptr) blob->get((i * d2 + j) * d3 + k, *description_.unit_, *record);
            }
        }
    }
}

uint64_t MatlabLeaf::addCell(const DataEntry& entry) {
    const BlobValue* const blob = dynamic_cast<const BlobValue*>(entry.getDataValue());
    if (blob == nullptr) return addText(entry.getDataValueString(nullptr, true));
    const size_t count = blob->getCount();
    const std::unique_ptr<double[]> numbers(new double[count]);
    blob->copyTo(*description_.unit_, numbers.get(), count);
    return cells_.addNumbers(numbers.get(), count);
}

uint64_t MatlabLeaf::addText(const Str& text) {
    if (lastReference_ == 0 || text != lastText_) {
        lastReference_ = cells_.addText(text);
        lastText_ = text;
    }
    return lastReference_;
}

void MatlabLeaf::finish() {
    if (times_ != nullptr) return;
    Hdf5Item value = MatlabForm::AddEmpty(group_, MatlabTree::VALUE, CLASSES[description_.content_]);
    describe(value);
    Hdf5Item time = MatlabForm::AddEmpty(group_, MatlabTree::TIME, MatlabForm::DOUBLE_CLASS);
    describeTime(time);
}
