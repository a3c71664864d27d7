#pragma once

#include "units/Unit.h"
#include "utils/hdf5/Hdf5Group.h"

class BlobValue;
class DataEntry;
class MatlabCells;
class PaddingLimit;

// One variable in a file of Matlab's layout: the data sets "value", "units" and "time" in its group. The
// values and times begin with the first sample, since without any they have another form.
class MatlabLeaf {
public:
    enum Content { NUMBERS, TEXTS, CELLS };
    struct Description {
        Content content_ = NUMBERS;  // TEXTS are strings of HDF5, which Matlab does not read; CELLS hold texts or blobs
        int rank_ = 0;               // of the numbers of one sample as the log has them
        unsigned short dims_[3] = {};
        const Unit* unit_ = nullptr;      // of the values; not null
        Str standardName_;                // empty: none
        const Unit* timeUnit_ = nullptr;  // not null
    };

    // Describes the variable of that name in its group. The group and the cells are borrowed.
    MatlabLeaf(Hdf5Group& group, MatlabCells& cells, const Str& name, const Description& description);

    bool add(const DataEntry& entry, PaddingLimit& padding);  // false for a sample that the limit leaves out
    void finish();  // gives what no sample came for the form of an empty value

private:
    bool admits(const DataEntry& entry, PaddingLimit& padding) const;
    Hdf5Shape shape() const;  // of a sample's numbers
    void begin();
    void describe(Hdf5Item& value) const;
    void describeTime(Hdf5Item& time) const;
    void fillRecord(const DataEntry& entry, double* record) const;
    void fillArray(const BlobValue* blob, double* record) const;
    uint64_t addCell(const DataEntry& entry);
    uint64_t addText(const Str& text);

    Hdf5Group& group_;
    MatlabCells& cells_;
    const Description description_;
    // The file's. Null before the first sample, and from then on but for the times and the one for the content.
    Hdf5NumberColumn* times_ = nullptr;
    Hdf5NumberColumn* numbers_ = nullptr;
    Hdf5TextColumn* texts_ = nullptr;
    Hdf5ReferenceColumn* references_ = nullptr;
    // The last cell with a text; one that is the same again is not written again.
    Str lastText_;
    uint64_t lastReference_ = 0;  // 0: none
};
