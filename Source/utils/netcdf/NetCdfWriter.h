#pragma once

#include <memory>

#include "io/FileIdentity.h"
#include "utils/MemoryReserve.h"
#include "utils/Timestamp.h"
#include "utils/netcdf/NetCdf.h"
#include "utils/netcdf/NetCdfAttValue.h"

class BlobValue;
class ElementURI;
class NetCdfWriter;

typedef NetCdfWriter NetCdfGroup;
typedef FastMap<const Str, NetCdfGroup*> NetCdfGroups;

// Writes one NetCDF file, or stands for one group in it. First everything is defined, each definition idempotent by its
// name; initialize ends that; then come records, which are gathered and put in blocks; finalize closes the file.
// Errors: definitions give null and everything else false once a call of the library has failed (isOk). A failed record
// or group is printed on standard output; the first failure of the file is one ERROR message besides. What was written
// stays. Threads: not synchronised.
class NetCdfWriter : public NetCdf {
public:
    static const char* const TIME_NAME;  // of the shared time axis of the classic format
    static const char* const TRAJECTORY_ID;

    // A new writer, owned by the caller; null, and the reason printed, when the file cannot be created.
    static NetCdfWriter* NewNetCdfWriter(const char* path, bool version4, const char* trajectoryName);

    // Replaces the file at path. version4: a NetCDF-4 file, otherwise one of the classic format. With a trajectory name
    // (borrowed; null for none) the file names its trajectory, and in the classic format has a shared time axis.
    NetCdfWriter(const char* path, bool version4, const char* trajectoryName);
    // A group in the NetCDF-4 file or group parentId; not ok, and the reason printed, when it cannot be defined.
    NetCdfWriter(const char* name, int parentId);
    ~NetCdfWriter() override;  // closes the file if that has not been done

    // Definitions. What they return belongs to the writer; an existing item of that name is returned as it is.
    NetCdfGroup* findGroup(const Str& name) const { return groups_.get(name); }
    NetCdfGroup* addGroup(const Str& name);                 // null when it cannot be defined: the file stays ok
    NetCdfDim* addDim(const Str& name, unsigned int size);  // size 0: unlimited
    // A variable with a value per record. d1 is unlimited; null stands for the shared time axis. d2 to d4, as far as
    // given, are the shape of a record.
    NetCdfVar* addVar(const Str& name, NetCdfType type, const NetCdfDim* d1, const NetCdfDim* d2 = nullptr,
                      const NetCdfDim* d3 = nullptr, const NetCdfDim* d4 = nullptr);
    NetCdfVar* addStaticVar(const Str& name, NetCdfType type, const NetCdfDim* dim);  // not by record; null without dim
    // An attribute that is there keeps its value. The classic format has signed bytes alone: there an unsigned one
    // becomes a byte with the same bits.
    NetCdfAtt* addGlobalAtt(const Str& name, const NetCdfAttValue& value) {
        return addAtt(gatts_, GLOBAL_ID, name, value);
    }
    NetCdfAtt* addVarAtt(NetCdfVar& var, const Str& name, const NetCdfAttValue& value) {
        return addAtt(var.atts_, var.varId_, name, value);
    }
    bool setAttValue(NetCdfAtt& att, const NetCdfAttValue& value);  // a number keeps the attribute's type, fitted to it
    bool isFree(const Str& name) const;  // no variable and no group stands in the way of something of that name
    // After a failed definition: true when only its own name or type was at fault, so that the file can go on.
    bool recover();

    // Records to gather per variable at most, for variables still to be defined; 1 puts each record at once.
    void setBlockRecords(unsigned int records) { blockRecords_ = records; }
    // Room that the classic format keeps for attributes that become longer later; before initialize.
    void setHeaderRoom(size_t bytes) { headerRoom_ = bytes; }

    bool initialize();  // ends the definitions, of the groups too; idempotent
    // Both are true as well when the record was only gathered: a failure to write it may show with a later one.
    // The time, and the current value of every other record variable, make the next record.
    bool writeRecord(const Timestamp& t);
    // The current value makes the next record of the variable, which may be one of a group; null and others than record
    // variables are left alone, with false. An array's shape is that of the element name, which may be null.
    bool writeVarRecord(NetCdfVar* var, const ElementURI* uri);
    // Bytes that the variable's next record adds to a NetCDF-4 file before they are compressed: a chunk when it begins
    // one, else none.
    static size_t NewRoom(const NetCdfVar& var);
    // Between the two, after initialize, attributes can be set again to values of any length.
    bool beginAttChanges();  // false before initialize too
    bool endAttChanges();
    bool finalize();  // false, with nothing done, when not ok or finalized already
    void discard();   // closes the file as it is and removes it, unless another stands in its place by now

    bool isOk() const { return ok_; }  // the last call of the library went well, or recover has set that right

private:
    static const int GLOBAL_ID = -1;  // stands for the file where a variable's id is asked for
    static constexpr size_t CHUNK_RECORDS = 256;
    static const size_t WORKING_CHUNKS = 4;      // that the library may need beside each other to compress one
    static const size_t GATHER_ROOM = 67108864;  // bytes, for all blocks together
    static const size_t ROW_ROOM = 524288;       // bytes of a classic file over which a block is spread

    bool create();
    bool close();
    bool check(int status);  // notes the status of a call of the library
    // Makes the call, when there are so many bytes of memory at least, and notes its status.
    template <typename Call>
    bool call(const Call& call, size_t bytes = 0);
    void report(const char* failedTo);
    void defineTrajectory();
    NetCdfVar* defineVar(const Str& name, NetCdfType type, int nDims, const int* dimIds);
    void chunk(const NetCdfVar& var, const size_t* recordShape);
    NetCdfAtt* addAtt(NetCdfAtts& atts, int varId, const Str& name, const NetCdfAttValue& value);
    size_t layoutBytes() const;
    bool initializeGroups();
    void spreadBlocks();

    static void GatherArray(const NetCdfVar& var, const BlobValue& blob, const ElementURI& uri);
    bool refuseRecord();
    bool flushRecords();
    bool flushVarRecords(NetCdfVar& var);
    bool flushAll();
    bool flushVarsOf(NetCdfWriter& writer);  // and of its groups

    bool ok_ = true;
    const bool isGroup_;
    const Str filename_;        // of a file
    unsigned int numRecs_ = 0;  // by writeRecord
    bool initialized_ = false;
    bool finalized_ = false;
    const char* const trajectoryName_;  // borrowed; may be null
    const bool version4_;
    NetCdfDim* trajectoryLenDim_ = nullptr;  // these four are null where the file has none
    NetCdfVar* trajectoryVar_ = nullptr;
    NetCdfDim* timeDim_ = nullptr;
    NetCdfVar* timeVar_ = nullptr;
    NetCdfGroups groups_;  // owned
    unsigned int blockRecords_;
    size_t headerRoom_ = 0;
    int systemError_ = 0;                           // errno of the failed call
    std::unique_ptr<const FileIdentity> identity_;  // of a file
    size_t gathered_ = 0;                           // bytes in the blocks of variables that were written by themselves
    bool reported_ = false;
};
