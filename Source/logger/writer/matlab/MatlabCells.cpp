#include "logger/writer/matlab/MatlabCells.h"

#include "logger/writer/matlab/MatlabForm.h"

Hdf5Group& MatlabCells::group() {
    return root_.addGroup(MatlabForm::REFERENCES_GROUP);
}

uint64_t MatlabCells::addText(const Str& text) {
    return MatlabForm::AddText(group(), nextName(), text).reference();
}

uint64_t MatlabCells::addNumbers(const double* numbers, size_t count) {
    return MatlabForm::AddNumbers(group(), nextName(), numbers, count).reference();
}
