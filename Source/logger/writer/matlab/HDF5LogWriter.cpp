#include "logger/writer/matlab/HDF5LogWriter.h"

#include <algorithm>

#include "logger/entry/DataEntry.h"
#include "logger/writer/matlab/MatlabForm.h"

HDF5LogWriter::HDF5LogWriter(const Str& filename, bool matlab, const RequestedVariables& variables,
                             const RequestedVariables& settings)
    : ArrayLogWriter(SHORTEST_FIRST, variables, settings),
      filename_(filename),
      matlab_(matlab),
      hdf5_(filename.cStr(), matlab ? MatlabForm::HEADER_SIZE : 0),
      firstTime_(Timestamp::NOT_SET_TIME),
      tree_(hdf5_.root()),
      cells_(hdf5_.root()),
      leaves_(true),
      leafOf_(new MatlabLeaf*[requestCount()]()) {
    checkFile("open");
}

HDF5LogWriter::~HDF5LogWriter() {
    HDF5LogWriter::writeFooter();
}

unsigned int HDF5LogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (!hdf5_.isOk()) return 0;
    initializeFilterLogWriter();
    placeRequests();
    return FilterLogWriter::write(entry, unit);
}

// A variable that the log tells of late still gets its leaf.
bool HDF5LogWriter::place(int request) {
    if (leafOf_[request] != nullptr) return true;
    const VariableSelection& selection = selectionOf(request);
    const Unit* const unit = selection.shownUnit(positionOf(request));
    if (unit == nullptr) return false;
    leafOf_[request] = new MatlabLeaf(tree_.addLeaf(nameOf(request)), cells_, nameOf(request),
                                      describe(*unit, selection, positionOf(request)));
    leaves_.push(leafOf_[request]);
    return true;
}

// The shape of the element's arrays; a dimension left out between others counts as 1.
static void DescribeArray(const ElementURI& element, MatlabLeaf::Description& description) {
    const unsigned short dimensions[] = {element.getDimension1(), element.getDimension2(), element.getDimension3()};
    for (int i = 0; i < 3; ++i) {
        description.dims_[i] = std::max<unsigned short>(1, dimensions[i]);
        if (dimensions[i] != 0) description.rank_ = i + 1;
    }
}

MatlabLeaf::Description HDF5LogWriter::describe(const Unit& unit, const VariableSelection& selection,
                                                int position) const {
    MatlabLeaf::Description description;
    description.unit_ = &unit;
    description.timeUnit_ = matlab_ ? &Units::MATLAB_TIME : &Units::EPOCH_SECOND;
    const DataAccess* const access = selection.access(position);
    if (access == nullptr) return description;
    const ElementURI* const standardName = selection.standardName(position, access->getUniversalCode());
    if (standardName != nullptr) description.standardName_ = *standardName;
    const ElementURI* const element = log_.getElementURI(access->getElementCode());
    if (access->getBinaryType() != STRVALUE || element == nullptr) return description;
    if (element->getBlobType() == NOT_BLOB) {
        description.content_ = matlab_ ? MatlabLeaf::CELLS : MatlabLeaf::TEXTS;
    } else if (element->getDimension1() == 0) {
        description.content_ = MatlabLeaf::CELLS;
    } else {
        DescribeArray(*element, description);
    }
    return description;
}

unsigned int HDF5LogWriter::addSample(const DataEntry& entry, int request) {
    MatlabLeaf* const leaf = leafOf_[request];
    if (leaf == nullptr) return 0;
    if (!firstTime_.isSet()) firstTime_ = entry.getTimestamp();
    if (!leaf->add(entry, padding_)) padding_.report(filename_.cStr(), nameOf(request), log_.getLogger());
    checkFile("write");
    return 1;
}

unsigned int HDF5LogWriter::writeFooter() {
    if (wroteFooter_) return 0;
    wroteFooter_ = true;
    for (unsigned int i = 0; i < leaves_.size(); ++i) leaves_.at(i)->finish();
    tree_.finish();
    if (matlab_) {
        hdf5_.setUserBlock(MatlabForm::Header(firstTime_.isSet() ? firstTime_ : Timestamp::EPOCH_START_TIME));
    }
    hdf5_.finalize();
    checkFile("write");
    return 0;
}

void HDF5LogWriter::checkFile(const char* toDo) {
    if (!hdf5_.isOk()) outcome_->fail(toDo, filename_, hdf5_.status().cStr(), log_.getLogger());
}
