#include "utils/netcdf/NetCdfWriter.h"

#include <netcdf.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <utility>

#include "data/BlobValue.h"
#include "data/ElementURI.h"
#include "data/Log.h"
#include "io/OldFile.h"
#include "utils/hdf5/Hdf5Library.h"
#include "utils/netcdf/NetCdfBlock.h"

const char* const NetCdfWriter::TIME_NAME = "Time";
const char* const NetCdfWriter::TRAJECTORY_ID = "trajectory_id";

template <typename Call>
bool NetCdfWriter::call(const Call& call, size_t bytes) {
    const MemoryReserve::Loan memory(bytes);
    return check(memory.hasRoom() ? call() : NC_ENOMEM);
}

// Creation.

NetCdfWriter* NetCdfWriter::NewNetCdfWriter(const char* path, bool version4, const char* trajectoryName) {
    std::unique_ptr<NetCdfWriter> writer(new NetCdfWriter(path, version4, trajectoryName));
    if (writer->isOk()) return writer.release();
    printf("NetCdf error: %s\n", writer->status());
    return nullptr;
}

NetCdfWriter::NetCdfWriter(const char* path, bool version4, const char* trajectoryName)
    : isGroup_(false),
      filename_(path),
      trajectoryName_(trajectoryName),
      version4_(version4),
      blockRecords_(NetCdfBlock::DEFAULT_RECORDS) {
    Hdf5Library::Prepare();
    RemoveOldFile(path);
    if (!create()) {
        ncId_ = -1;
        report("open");
    } else if (trajectoryName_ != nullptr) {
        defineTrajectory();
    }
}

// A failed call of the library would remove what it could not write to, be it a device.
bool NetCdfWriter::create() {
    errno = 0;
    if (IsWrittenThrough(filename_.cStr())) return check(ENOTSUP);
    size_t bufferSize = 2 * ROW_ROOM;  // what is written back and forth in the records of a block stays inside
    const bool isCreated =
        call([&] { return nc__create(filename_.cStr(), version4_ ? NC_NETCDF4 : 0, 0, &bufferSize, &ncId_); });
    identity_ = std::make_unique<FileIdentity>(filename_);
    return isCreated;
}

void NetCdfWriter::defineTrajectory() {
    trajectoryLenDim_ = addDim("trajectoryNameLen", static_cast<unsigned int>(strlen(trajectoryName_)));
    trajectoryVar_ = addStaticVar(TRAJECTORY_ID, NC_CHAR_TYPE, trajectoryLenDim_);
    if (trajectoryVar_ != nullptr) addVarAtt(*trajectoryVar_, "standard_name", TRAJECTORY_ID);
    if (version4_) return;
    timeDim_ = addDim(TIME_NAME, 0);
    timeVar_ = addVar(TIME_NAME, NC_DOUBLE_TYPE, timeDim_);
    if (timeVar_ == nullptr) return;
    addVarAtt(*timeVar_, "standard_name", "time");
    addVarAtt(*timeVar_, "units", "seconds since 1970-01-01 00:00:00");
    addVarAtt(*timeVar_, "axis", "T");
}

// What the definition of a group can report.
static const struct {
    int code_;
    const char* format_;
} GROUP_ERRORS[] = {
    {-112, "File was created with the strict netcdf-3 flag, netcdf-4 operations are not allowed (code %d).\n"},
    {-111, "Attempting a netCDF-4 operation on a netCDF-3 file (code %d).\n"},
    {-101, "An error was reported by the HDF5 layer (code %d).\n"},
    {-59, "Name contains illegal characters (code %d).\n"},
    {-53, "Name exceed max length NC_MAX_NAME (code %d).\n"},
    {-42, "Name is in use (code %d).\n"},
    {-38, "Not in define mode (code %d).\n"},
    {-37, "Attempt to write to a read-only file (code %d).\n"},
    {-33, "Bad group id (code %d).\n"},
};

static void PrintGroupError(const char* name, int status) {
    printf("nc_def_grp failed to define a new NetCdf group for var %s with error: ", name);
    for (const auto& error : GROUP_ERRORS) {
        if (error.code_ == status) printf(error.format_, status);
    }
}

NetCdfWriter::NetCdfWriter(const char* name, int parentId)
    : isGroup_(true), trajectoryName_(nullptr), version4_(true), blockRecords_(NetCdfBlock::DEFAULT_RECORDS) {
    if (call([&] { return nc_def_grp(parentId, name, &ncId_); })) return;
    ncId_ = -1;
    PrintGroupError(name, status_);
}

NetCdfWriter::~NetCdfWriter() {
    if (isGroup_) return;
    finalize();
    close();
}

// What is still in define mode is laid out first.
bool NetCdfWriter::close() {
    if (ncId_ < 0) return true;
    const int id = std::exchange(ncId_, -1);
    return call([&] { return nc_close(id); }, initialized_ ? 0 : layoutBytes());
}

void NetCdfWriter::discard() {
    if (!ok_) report("write");
    finalized_ = true;
    close();
    if (FileIdentity(filename_) == *identity_) RemoveOldFile(filename_.cStr());
}

bool NetCdfWriter::check(int status) {
    status_ = status;
    ok_ = status == NC_NOERR;
    if (!ok_) systemError_ = errno;
    return ok_;
}

bool NetCdfWriter::recover() {
    ok_ = status_ == NC_NOERR || status_ == NC_ENAMEINUSE || status_ == NC_EBADNAME || status_ == NC_EMAXNAME ||
          status_ == NC_EBADTYPE;
    return ok_;
}

// The first failure is the one to tell. Through HDF5 the library can only guess why the system refused; errno knows.
void NetCdfWriter::report(const char* failedTo) {
    if (reported_ || isGroup_) return;
    reported_ = true;
    const bool onlyErrnoKnows = version4_ && (status_ > 0 || status_ == NC_EHDFERR) && systemError_ != 0;
    const char* const reason = onlyErrnoKnows ? strerror(systemError_) : status();
    Log::Current().getLogger().fileFailure(failedTo, filename_, reason);
}

// Definitions.

NetCdfGroup* NetCdfWriter::addGroup(const Str& name) {
    if (!ok_) return nullptr;
    if (NetCdfGroup* const known = findGroup(name)) return known;
    if (findDim(name) != nullptr) {
        PrintGroupError(name.cStr(), NC_ENAMEINUSE);
        return nullptr;
    }
    std::unique_ptr<NetCdfGroup> group(new NetCdfGroup(name.cStr(), ncId_));
    if (!group->isOk()) return nullptr;
    group->blockRecords_ = blockRecords_;
    groups_.put(name, group.get(), true);
    return group.release();
}

// The variables, groups and dimensions of a NetCDF-4 group share one set of names. A dimension that comes too late, or
// a group with the name of one, the library would take, and find out only when it lays out the file.
bool NetCdfWriter::isFree(const Str& name) const {
    return !version4_ || (findVar(name) == nullptr && findGroup(name) == nullptr);
}

NetCdf::NetCdfDim* NetCdfWriter::addDim(const Str& name, unsigned int size) {
    if (!ok_) return nullptr;
    if (NetCdfDim* const known = findDim(name)) return known;
    int dimId = 0;
    const bool isNew = isFree(name);
    if (!call([&] { return isNew ? nc_def_dim(ncId_, name.cStr(), size, &dimId) : NC_ENAMEINUSE; })) return nullptr;
    NetCdfDim* const dim = new NetCdfDim{dimId, size};
    dimArray_.push(dim);
    dims_.put(name, dim, false);
    return dim;
}

NetCdf::NetCdfVar* NetCdfWriter::addVar(const Str& name, NetCdfType type, const NetCdfDim* d1, const NetCdfDim* d2,
                                        const NetCdfDim* d3, const NetCdfDim* d4) {
    if (!ok_) return nullptr;
    if (NetCdfVar* const known = findVar(name)) return known;
    if (d1 == nullptr) d1 = timeDim_;
    int dimIds[MAX_DIMS] = {d1 == nullptr ? 0 : d1->dimId_};
    size_t recordShape[MAX_DIMS - 1] = {};
    int nDims = 1;
    for (const NetCdfDim* dim : {d2, d3, d4}) {
        if (dim == nullptr) break;
        recordShape[nDims - 1] = dim->dimSize_;
        dimIds[nDims++] = dim->dimId_;
    }
    NetCdfVar* const var = defineVar(name, type, nDims, dimIds);
    if (var == nullptr) return nullptr;
    var->isRecord_ = true;
    var->block_.reset(new NetCdfBlock(type, nDims, recordShape, blockRecords_));
    if (version4_) chunk(*var, recordShape);
    return var;
}

NetCdf::NetCdfVar* NetCdfWriter::addStaticVar(const Str& name, NetCdfType type, const NetCdfDim* dim) {
    if (!ok_) return nullptr;
    if (NetCdfVar* const known = findVar(name)) return known;
    return dim == nullptr ? nullptr : defineVar(name, type, 1, &dim->dimId_);
}

NetCdf::NetCdfVar* NetCdfWriter::defineVar(const Str& name, NetCdfType type, int nDims, const int* dimIds) {
    int varId = 0;
    if (!call([&] { return nc_def_var(ncId_, name.cStr(), type, nDims, dimIds, &varId); })) return nullptr;
    NetCdfVar* const var = new NetCdfVar(varId, nDims, dimIds, type, ncId_);
    var->varIndex_ = static_cast<unsigned int>(varArray_.getMaxIndex() + 1);
    vars_.put(name, var, false);
    varArray_.push(var);
    return var;
}

// Chunks of 256 records, lightly compressed. Texts cannot be, which is no failure: they are stored as they are.
// The library would keep 16 MiB of chunks for each variable. None is enough: the blocks are chunks, several of small
// records.
void NetCdfWriter::chunk(const NetCdfVar& var, const size_t* recordShape) {
    size_t sizes[MAX_DIMS] = {CHUNK_RECORDS};
    std::copy_n(recordShape, var.nDims_ - 1, sizes + 1);
    const MemoryReserve::Loan memory;
    if (!memory.hasRoom()) return;
    status_ &= nc_def_var_chunking(ncId_, var.varId_, NC_CHUNKED, sizes);
    status_ &= nc_def_var_deflate(ncId_, var.varId_, 0, 1, 1);
    nc_set_var_chunk_cache(ncId_, var.varId_, 1, 1, 1);
    const size_t fitting = NetCdfBlock::ROOM / std::max<size_t>(1, var.block_->recordBytes());
    var.block_->limitTo(std::max(CHUNK_RECORDS, fitting / CHUNK_RECORDS * CHUNK_RECORDS));
}

NetCdf::NetCdfAtt* NetCdfWriter::addAtt(NetCdfAtts& atts, int varId, const Str& name, const NetCdfAttValue& value) {
    static_assert(GLOBAL_ID == NC_GLOBAL, "the library's number for the file itself");
    if (!ok_) return nullptr;
    if (NetCdfAtt* const known = atts.get(name)) return known;
    const bool isUnsignable = !version4_ && value.type() == NC_UBYTE_TYPE;
    const NetCdfType type = isUnsignable ? NC_BYTE_TYPE : value.type();
    if (!call([&] { return value.put(ncId_, varId, name, type); })) return nullptr;
    NetCdfAtt* const att = new NetCdfAtt{static_cast<int>(atts.size()), varId, name, type, value.nelems()};
    atts.put(name, att, true);
    return att;
}

bool NetCdfWriter::setAttValue(NetCdfAtt& att, const NetCdfAttValue& value) {
    if (!ok_ || !call([&] { return value.put(ncId_, att.varId_, att.name_, att.netCdfType_); })) return false;
    att.nelems_ = value.nelems();
    return true;
}

// Leaving and entering define mode.

bool NetCdfWriter::initialize() {
    if (initialized_) return ok_;
    errno = 0;
    // The library ends define mode once for the whole file.
    ok_ = ok_ && initializeGroups() &&
          (isGroup_ || call([&] { return nc__enddef(ncId_, headerRoom_, 4, 0, 4); }, layoutBytes()));
    if (ok_ && trajectoryVar_ != nullptr) {
        call([&] { return nc_put_var_text(ncId_, trajectoryVar_->varId_, trajectoryName_); });
    }
    initialized_ = ok_;
    if (ok_) {
        spreadBlocks();
    } else {
        report("write");
    }
    return ok_;
}

// What the library needs to lay the file out, about: in NetCDF-4 every variable is opened.
size_t NetCdfWriter::layoutBytes() const {
    static const size_t PER_VARIABLE = 131072;
    size_t bytes = version4_ ? PER_VARIABLE * varArray_.size() : 0;
    for (unsigned int i = 0; i < groups_.size(); ++i) bytes += groups_.getIndexed(i)->layoutBytes();
    return bytes;
}

bool NetCdfWriter::initializeGroups() {
    bool areOk = true;
    for (unsigned int i = 0; i < groups_.size(); ++i) {
        NetCdfGroup& group = *groups_.getIndexed(i);
        if (group.initialize()) continue;
        areOk = false;
        status_ = group.status_;
        systemError_ = group.systemError_;
    }
    return areOk;
}

// In the classic format the values of a variable lie a row apart. Every record is written whole, so that the library
// need not fill it first; and a block spans no more rows than the library buffers.
void NetCdfWriter::spreadBlocks() {
    if (version4_) return;
    nc_set_fill(ncId_, NC_NOFILL, nullptr);
    size_t rowBytes = 1;
    for (unsigned int i = 0; i < varArray_.size(); ++i) rowBytes += NetCdfTypeSize_[varArray_.at(i)->netCdfType_];
    for (unsigned int i = 0; i < varArray_.size(); ++i) {
        if (varArray_.at(i)->isRecord_) varArray_.at(i)->block_->limitTo(ROW_ROOM / rowBytes);
    }
}

bool NetCdfWriter::beginAttChanges() {
    return initialized_ && ok_ && flushAll() && call([&] { return nc_redef(ncId_); });
}

bool NetCdfWriter::endAttChanges() {
    errno = 0;
    if (ok_ && !call([&] { return nc_enddef(ncId_); })) report("write");
    return ok_;
}

// Records.

bool NetCdfWriter::writeRecord(const Timestamp& t) {
    if (!ok_) return false;
    const double seconds = t.isSet() ? t.asDouble() : NAN;
    bool isFull = false;
    for (unsigned int i = 0; i < varArray_.size(); ++i) {
        NetCdfVar& var = *varArray_.at(i);
        if (!var.isRecord_) continue;
        var.block_->addNumber(&var == timeVar_ ? seconds : var.number());
        if (var.block_->isRefused()) return refuseRecord();
        ++var.numRecs_;
        isFull = isFull || var.block_->isFull();
    }
    ++numRecs_;
    return !isFull || flushRecords();
}

bool NetCdfWriter::writeVarRecord(NetCdfVar* var, const ElementURI* uri) {
    if (!ok_ || var == nullptr || !var->isRecord_) return false;
    const bool isArray = uri != nullptr && uri->getDimensions() > 0;
    const BlobValue* const blob = isArray ? dynamic_cast<const BlobValue*>(var->dataValue()) : nullptr;
    if (blob != nullptr) {
        GatherArray(*var, *blob, *uri);
    } else if (var->netCdfType_ != NC_STRING_TYPE) {
        var->block_->addNumber(var->number());
    } else {
        var->block_->addText(var->isMissing() ? Str() : var->dataValue()->toString());
    }
    if (var->block_->isRefused()) return refuseRecord();
    ++var->numRecs_;
    gathered_ += var->block_->recordBytes();
    if (gathered_ > GATHER_ROOM) return flushAll();
    return !var->block_->isFull() || flushVarRecords(*var);
}

bool NetCdfWriter::refuseRecord() {
    check(NC_ENOMEM);
    report("write");
    return false;
}

size_t NetCdfWriter::NewRoom(const NetCdfVar& var) {
    return var.numRecs_ % CHUNK_RECORDS == 0 ? CHUNK_RECORDS * var.block_->recordBytes() : 0;
}

// Row by row, as the blob lies. Elements that it does not have are NaN.
void NetCdfWriter::GatherArray(const NetCdfVar& var, const BlobValue& blob, const ElementURI& uri) {
    const size_t count = size_t(uri.getDimension1()) * std::max<size_t>(1, uri.getDimension2()) *
                         std::max<size_t>(1, uri.getDimension3());
    var.block_->addUnwritten();
    for (size_t i = 0; i < count; ++i) {
        double element = std::nan("");
        if (!var.isMissing()) blob.get(i, *blob.getUnit(), element);
        var.block_->setElement(i, element);
    }
}

// The value's text as messages show it.
static Str TextOf(const DataValue* value) {
    return value == nullptr ? Str("null") : value->toString();
}

bool NetCdfWriter::flushRecords() {
    for (unsigned int i = 0; i < varArray_.size(); ++i) {
        NetCdfVar& var = *varArray_.at(i);
        errno = 0;
        if (!var.isRecord_ || call([&] { return var.block_->flush(var); })) continue;
        printf("writeRecord #%d, var#%d (name=\"%s\", value=%s), write %g error: %s\n", static_cast<int>(numRecs_) - 1,
               i, vars_.findKey(&var, "unknown").cStr(), TextOf(var.dataValue()).cStr(), var.block_->lastValue(),
               status());
        report("write");
        return false;
    }
    return true;
}

bool NetCdfWriter::flushVarRecords(NetCdfVar& var) {
    gathered_ -= std::min(gathered_, var.block_->gatheredBytes());
    errno = 0;
    if (call([&] { return var.block_->flush(var); }, WORKING_CHUNKS * CHUNK_RECORDS * var.block_->recordBytes())) {
        return true;
    }
    printf("writeVarRecord #%zd, var#%d (value=%s, netCdfType=%d), write %g error: %s\n", var.numRecs_ - 1, var.varId_,
           TextOf(var.dataValue()).cStr(), var.netCdfType_, var.block_->lastValue(), status());
    report("write");
    return false;
}

bool NetCdfWriter::flushAll() {
    return (numRecs_ == 0 || flushRecords()) && flushVarsOf(*this);
}

bool NetCdfWriter::flushVarsOf(NetCdfWriter& writer) {
    for (unsigned int i = 0; i < writer.varArray_.size(); ++i) {
        NetCdfVar& var = *writer.varArray_.at(i);
        if (var.isRecord_ && !flushVarRecords(var)) return false;
    }
    for (unsigned int i = 0; i < writer.groups_.size(); ++i) {
        if (!flushVarsOf(*writer.groups_.getIndexed(i))) return false;
    }
    return true;
}

bool NetCdfWriter::finalize() {
    if (!ok_) report("write");
    if (!ok_ || finalized_ || !flushAll()) return false;
    errno = 0;
    if (initialized_ && !call([&] { return nc_sync(ncId_); })) report("write");
    const bool isClosed = close();
    if (!isClosed) report("close");
    return finalized_ = isClosed;
}
