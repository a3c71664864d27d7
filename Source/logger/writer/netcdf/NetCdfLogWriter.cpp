#include "logger/writer/netcdf/NetCdfLogWriter.h"

#include <cstdio>
#include <memory>

#include "data/BlobValue.h"
#include "data/DataAccess.h"
#include "logger/entry/DataEntry.h"
#include "logger/writer/netcdf/NetCdfConventions.h"
#include "logger/writer/netcdf/NetCdfNames.h"
#include "utils/netcdf/NetCdfBlock.h"

static const char* const COORDINATES = "time depth latitude longitude";
static const char* const TIME_UNITS = "seconds since 1970-01-01 00:00:00Z";

NetCdfLogWriter::NetCdfLogWriter(const Str& filename, bool version4, int varCount, char** varList, char** unitList,
                                 int attCount, char** attList)
    : FilterLogWriter(nullptr, varCount, varList, unitList, false, attCount, attList),
      filename_(filename),
      netCdfWriter_(NetCdfWriter::NewNetCdfWriter(filename_.cStr(), version4, NetCdfConventions::TRAJECTORY_NAME)),
      vars_(new NetCdf::NetCdfVar*[varCount + attCount]()),
      varUris_(new const ElementURI*[varCount + attCount]()),
      shapes_(true),
      timeVars_(new NetCdf::NetCdfVar*[varCount + attCount]()),
      holders_(true) {}

NetCdfLogWriter::~NetCdfLogWriter() {
    NetCdfLogWriter::writeFooter();
}

unsigned int NetCdfLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (!isValid() || !initializeFilterLogWriter()) return 0;
    if (!netCdfInitialized_ && watch_.hasChanged() && initializeNetCdf()) {
        netCdfInitialized_ = netCdfWriter_->initialize();
    }
    return netCdfInitialized_ ? FilterLogWriter::write(entry, unit) : 0;
}

// Defines what is not defined yet. True when no request is open any more.
bool NetCdfLogWriter::initializeNetCdf() {
    watch_.look();
    bool isComplete = true;
    for (int i = 0; i < requestCount(); ++i) isComplete = define(i) && isComplete;
    if (isComplete) NetCdfConventions::AddFileAtts(*netCdfWriter_);
    return isComplete;
}

// Requests of one name share what the first of them has; a setting that is also a variable is written as that.
bool NetCdfLogWriter::define(int index) {
    const int owner = ownerOf(index);
    if (owner < 0) return true;
    if (owner == index) return vars_[index] != nullptr || defineFirst(index);
    vars_[index] = vars_[owner];
    varUris_[index] = varUris_[owner];
    timeVars_[index] = timeVars_[owner];
    return true;
}

bool NetCdfLogWriter::defineFirst(int index) {
    const VariableSelection& selection = selectionOf(index);
    const int position = positionOf(index);
    const ElementURI* const uri = log_.getElementURI(selection.code(position));
    if (const DataAccess* const access = selection.access(position)) {
        addVar(index, uri, access->getBinaryType(), NetCdfConventions::UnitOf(selection, position, *access),
               access->getUniversalCode());
    } else if (const Unit* const unit = selection.unitOfName(position)) {
        const ElementURI unknown(ElementURI::NO_CODE, selection.name(position), ElementURI::DATA_ELEMENT);
        addVar(index, &unknown, unit->getDefaultDataType(), *unit, NetCdfConventions::CodeOfLastPart(unknown, log_));
    } else if (log_.isDirectoryRead()) {
        printf("Not found: %hd %s\n", static_cast<short>(selection.code(position)), selection.name(position));
    } else {
        return false;
    }
    return true;
}

// What the elements of an array become, by its blob type; texts are of none.
static const NetCdf::NetCdfType BLOB_TYPES[BLOB_TYPE_COUNT] = {
    NetCdf::NC_STRING_TYPE, NetCdf::NC_BYTE_TYPE,   NetCdf::NC_SHORT_TYPE,  NetCdf::NC_SHORT_TYPE,
    NetCdf::NC_INT_TYPE,    NetCdf::NC_INT_TYPE,    NetCdf::NC_INT64_TYPE,  NetCdf::NC_INT64_TYPE,
    NetCdf::NC_UBYTE_TYPE,  NetCdf::NC_USHORT_TYPE, NetCdf::NC_USHORT_TYPE, NetCdf::NC_UINT_TYPE,
    NetCdf::NC_UINT_TYPE,   NetCdf::NC_UINT64_TYPE, NetCdf::NC_UINT64_TYPE, NetCdf::NC_FLOAT_TYPE,
    NetCdf::NC_FLOAT_TYPE,  NetCdf::NC_DOUBLE_TYPE, NetCdf::NC_DOUBLE_TYPE,
};

static NetCdf::NetCdfType TypeOf(const ElementURI& name, BinaryDataType type) {
    if (type == STRVALUE) {
        const unsigned int blobType = static_cast<unsigned int>(name.getBlobType());
        if (blobType < BLOB_TYPE_COUNT) return BLOB_TYPES[blobType];
        printf("Unable to handle Blob type %d for %s\n", name.getBlobType(), name.cStr());
        return NetCdf::NC_ABSENT_TYPE;
    }
    const NetCdfConventions::Types* const types = NetCdfConventions::FindTypes(type, name);
    return types == nullptr ? NetCdf::NC_ABSENT_TYPE : types->inGroup_;
}

// An empty value of the variable's own class, which the entries' values are copied into.
static DataValue* NewHolder(const ElementURI& name, BinaryDataType type, const Unit& unit) {
    if (type != STRVALUE) return unit.dataValue(type);
    if (name.getBlobType() == NOT_BLOB) return new StrValue();
    BlobValue* const blob = new BlobValue(name);
    blob->setUnit(unit);
    return blob;
}

void NetCdfLogWriter::addVar(int index, const ElementURI* name, BinaryDataType type, const Unit& unit,
                             unsigned short universalCode) {
    const NetCdf::NetCdfType netCdfType = TypeOf(*name, type);
    if (netCdfType == NetCdf::NC_ABSENT_TYPE) return;
    const Str varName = NetCdfNames::OfElement(*name);
    NetCdfGroup* const group = addGroups(varName, *name, index);
    if (group == nullptr) return;
    NetCdf::NetCdfVar* const var = defineVariable(*group, varName, *name, netCdfType);
    NetCdf::NetCdfVar* const timeVar = var == nullptr ? nullptr : defineTime(*group, varName + "_time");
    if (timeVar == nullptr) {
        printf("Failed to add variable: %s (index %d).\n", name->cStr(), index);
    } else {
        const VariableSelection& selection = selectionOf(index);
        const int position = positionOf(index);
        NetCdfConventions::Describe(*group, *var, unit, selection.standardName(position, universalCode), COORDINATES,
                                    selection.name(position));
        give(*var, NewHolder(*name, type, unit));
        give(*timeVar, Units::SECOND.dataValue(DOUBLE8));
        vars_[index] = var;
        if (name->getDimensions() > 0) {
            ElementURI* const shape = new ElementURI(*name);
            shapes_.push(shape);
            varUris_[index] = shape;
        }
        timeVars_[index] = timeVar;
    }
    group->recover();
}

// One group, of the file, for each part of the name but the last; the variable goes into the last of them.
NetCdfGroup* NetCdfLogWriter::addGroups(const Str& varName, const Str& fullName, int index) {
    NetCdfGroup* group = netCdfWriter_.get();
    size_t begin = 0;
    for (size_t dot = varName.find('.'); dot < varName.length(); dot = varName.find('.', begin)) {
        const Str part = varName.substr(begin, dot - begin);
        begin = dot + 1;
        if (part.isEmpty()) continue;
        group = netCdfWriter_->addGroup(NetCdfNames::Valid(part));
        if (group != nullptr) continue;
        printf("NetCdfLogWriter failed to add group %s while processing %s (index %d).\n", part.cStr(), fullName.cStr(),
               index);
        return nullptr;
    }
    return group;
}

// Null also where one of its names is taken: what came first keeps the place.
NetCdf::NetCdfVar* NetCdfLogWriter::defineVariable(NetCdfGroup& group, const Str& varName, const ElementURI& name,
                                                   NetCdf::NetCdfType type) {
    const struct {
        const char* ending_;
        unsigned short size_;
    } shape[] = {
        {"_time", 0}, {"_M", name.getDimension1()}, {"_N", name.getDimension2()}, {"_O", name.getDimension3()}};
    int count = 1;
    while (count < NetCdf::MAX_DIMS && shape[count].size_ != 0) ++count;
    if (!group.isFree(varName)) return nullptr;
    for (int i = 0; i < count; ++i) {
        if (!group.isFree(varName + shape[i].ending_)) return nullptr;
    }
    const NetCdf::NetCdfDim* dims[NetCdf::MAX_DIMS] = {};
    for (int i = 0; i < count; ++i) dims[i] = group.addDim(varName + shape[i].ending_, shape[i].size_);
    return group.addVar(varName, type, dims[0], dims[1], dims[2], dims[3]);
}

NetCdf::NetCdfVar* NetCdfLogWriter::defineTime(NetCdfGroup& group, const Str& timeName) {
    NetCdf::NetCdfVar* const var = group.addVar(timeName, NetCdf::NC_DOUBLE_TYPE, group.findDim(timeName));
    if (var != nullptr) group.addVarAtt(*var, "units", TIME_UNITS);
    return var;
}

void NetCdfLogWriter::give(NetCdf::NetCdfVar& var, DataValue* holder) {
    var.setHolder(holder);
    holders_.push(holder);
}

bool NetCdfLogWriter::admits(const DataEntry& entry, int index) {
    if (varUris_[index] == nullptr) return true;
    const NetCdf::NetCdfVar& var = *vars_[index];
    if (padding_.admits(entry, NetCdfWriter::NewRoom(var), var.block_->elements())) return true;
    padding_.report(filename_.cStr(), nameOf(index));
    return false;
}

unsigned int NetCdfLogWriter::writeData(const DataEntry* entry, int varIndex, const Unit*) {
    NetCdf::NetCdfVar* const var = vars_[varIndex];
    if (entry == nullptr || var == nullptr || !admits(*entry, varIndex)) return 0;
    NetCdf::NetCdfVar* const timeVar = timeVars_[varIndex];
    var->hold(entry->getDataValue());
    timeVar->hold(entry->getTimestamp().asDouble());
    return netCdfWriter_->writeVarRecord(var, varUris_[varIndex]) && netCdfWriter_->writeVarRecord(timeVar, nullptr);
}

unsigned int NetCdfLogWriter::writeAtt(const DataEntry* entry, int attIndex, const Unit* unit) {
    return writeData(entry, variables_.count() + attIndex, unit);
}

unsigned int NetCdfLogWriter::writeFooter() {
    if (netCdfWriter_ == nullptr || wroteFooter_) return 0;
    wroteFooter_ = true;
    if (!netCdfInitialized_) NetCdfConventions::PrintNothingWritten(variables_, vars_.get());
    finalized_ = NetCdfConventions::Finish(*netCdfWriter_, netCdfInitialized_, *outcome_);
    return 0;
}

void NetCdfLogWriter::resetInputs() {
    FilterLogWriter::resetInputs();
    watch_.reset();
}
