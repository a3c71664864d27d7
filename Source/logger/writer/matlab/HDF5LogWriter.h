#pragma once

#include <memory>

#include "logger/writer/ArrayLogWriter.h"
#include "logger/writer/HasFilename.h"
#include "logger/writer/matlab/MatlabCells.h"
#include "logger/writer/matlab/MatlabLeaf.h"
#include "logger/writer/matlab/MatlabTree.h"
#include "utils/hdf5/Hdf5Writer.h"

// The samples of the selected variables and settings as an HDF5 file in the layout of Matlab: a struct for each part of
// a name, and in the last one "value", "units" and "time". As `.mat` it is what Matlab loads; otherwise times are
// seconds and texts are strings of HDF5, for every other tool. Arrays keep their shape.
// Memory does not grow with the log. Errors: a file that cannot be created, written or closed is one ERROR message;
// what was written stays.
class HDF5LogWriter final : public ArrayLogWriter, public HasFilename {
public:
    // The lists are borrowed.
    HDF5LogWriter(const Str& filename, bool matlab, int varCount, char** varList, char** unitList, int attCount,
                  char** attList);
    ~HDF5LogWriter() override;  // finishes the file, if that has not been done

    unsigned int write(const LogEntry* entry, const Unit* unit) override;
    unsigned int writeFooter() override;  // the end of the file; once
    const Str& getFilename() override { return filename_; }

    bool isValid() override { return hdf5_.isOk(); }

protected:
    bool place(int request) override;
    unsigned int addSample(const DataEntry& entry, int request) override;  // 1, or 0 without a place

private:
    MatlabLeaf::Description describe(const Unit& unit, const VariableSelection& selection, int position) const;
    void checkFile(const char* toDo);

    const Str filename_;
    const bool matlab_;
    Hdf5Writer hdf5_;
    Timestamp firstTime_;  // of the first sample, whatever it is of
    MatlabTree tree_;
    MatlabCells cells_;
    FlexArray<MatlabLeaf*> leaves_;                // owned
    const std::unique_ptr<MatlabLeaf*[]> leafOf_;  // per request, of leaves_; null: none
};
