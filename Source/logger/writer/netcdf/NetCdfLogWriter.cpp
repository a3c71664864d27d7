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

NetCdfLogWriter::NetCdfLogWriter(const Str& filename, bool version4, const RequestedVariables& variables,
                                 const RequestedVariables& settings)
    : ArrayLogWriter(AS_LISTED, variables, settings),
      filename_(filename),
      netCdfWriter_(NetCdfWriter::NewNetCdfWriter(filename_.cStr(), version4, NetCdfConventions::TRAJECTORY_NAME)),
      vars_(new NetCdf::NetCdfVar*[requestCount()]()),
      varUris_(new const ElementURI*[requestCount()]()),
      shapes_(true),
      timeVars_(new NetCdf::NetCdfVar*[requestCount()]()),
      holders_(true) {}

NetCdfLogWriter::~NetCdfLogWriter() {
    NetCdfLogWriter::writeFooter();
}

unsigned int NetCdfLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (!isValid() || !initializeFilterLogWriter()) return 0;
    if (!netCdfInitialized_ && placeRequests()) initializeNetCdf();
    return netCdfInitialized_ ? FilterLogWriter::write(entry, unit) : 0;
}

void NetCdfLogWriter::initializeNetCdf() {
    NetCdfConventions::AddFileAtts(*netCdfWriter_);
    netCdfInitialized_ = netCdfWriter_->initialize();
}

bool NetCdfLogWriter::place(int request) {
    if (vars_[request] != nullptr) return true;
    const VariableSelection& selection = selectionOf(request);
    const int position = positionOf(request);
    const ElementURI* const uri = log_.getElementURI(selection.code(position));
    if (const DataAccess* const access = selection.access(position)) {
        addVar(request, uri, access->getBinaryType(), selection.unitOf(position, *access), access->getUniversalCode());
    } else if (const Unit* const unit = selection.unitOfName(position)) {
        const ElementURI unknown(ElementURI::NO_CODE, selection.name(position), ElementURI::DATA_ELEMENT);
        addVar(request, &unknown, unit->getDefaultDataType(), *unit, NetCdfConventions::CodeOfLastPart(unknown, log_));
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

void NetCdfLogWriter::addVar(int request, const ElementURI* name, BinaryDataType type, const Unit& unit,
                             unsigned short universalCode) {
    const NetCdf::NetCdfType netCdfType = TypeOf(*name, type);
    if (netCdfType == NetCdf::NC_ABSENT_TYPE) return;
    const Str varName = NetCdfNames::OfElement(*name);
    NetCdfGroup* const group = addGroups(varName, *name, request);
    if (group == nullptr) return;
    NetCdf::NetCdfVar* const var = defineVariable(*group, varName, *name, netCdfType);
    NetCdf::NetCdfVar* const timeVar = var == nullptr ? nullptr : defineTime(*group, varName + "_time");
    if (timeVar == nullptr) {
        printf("Failed to add variable: %s (index %d).\n", name->cStr(), request);
    } else {
        const VariableSelection& selection = selectionOf(request);
        const int position = positionOf(request);
        NetCdfConventions::Describe(*group, *var, unit, selection.standardName(position, universalCode), COORDINATES,
                                    selection.name(position));
        give(*var, NewHolder(*name, type, unit));
        give(*timeVar, Units::SECOND.dataValue(DOUBLE8));
        vars_[request] = var;
        if (name->getDimensions() > 0) {
            ElementURI* const shape = new ElementURI(*name);
            shapes_.push(shape);
            varUris_[request] = shape;
        }
        timeVars_[request] = timeVar;
    }
    group->recover();
}

// One group, of the file, for each part of the name but the last; the variable goes into the last of them.
NetCdfGroup* NetCdfLogWriter::addGroups(const Str& varName, const Str& fullName, int request) {
    NetCdfGroup* group = netCdfWriter_.get();
    size_t begin = 0;
    for (size_t dot = varName.find('.'); dot < varName.length(); dot = varName.find('.', begin)) {
        const Str part = varName.substr(begin, dot - begin);
        begin = dot + 1;
        if (part.isEmpty()) continue;
        group = netCdfWriter_->addGroup(NetCdfNames::Valid(part));
        if (group != nullptr) continue;
        printf("NetCdfLogWriter failed to add group %s while processing %s (index %d).\n", part.cStr(), fullName.cStr(),
               request);
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

bool NetCdfLogWriter::admits(const DataEntry& entry, int request) {
    if (varUris_[request] == nullptr) return true;
    const NetCdf::NetCdfVar& var = *vars_[request];
    if (padding_.admits(entry, NetCdfWriter::NewRoom(var), var.block_->elements())) return true;
    padding_.report(filename_.cStr(), nameOf(request), log_.getLogger());
    return false;
}

unsigned int NetCdfLogWriter::addSample(const DataEntry& entry, int request) {
    NetCdf::NetCdfVar* const var = vars_[request];
    if (var == nullptr || !admits(entry, request)) return 0;
    NetCdf::NetCdfVar* const timeVar = timeVars_[request];
    var->hold(entry.getDataValue());
    timeVar->hold(entry.getTimestamp().asDouble());
    return netCdfWriter_->writeVarRecord(var, varUris_[request]) && netCdfWriter_->writeVarRecord(timeVar, nullptr);
}

unsigned int NetCdfLogWriter::writeFooter() {
    if (netCdfWriter_ == nullptr || wroteFooter_) return 0;
    wroteFooter_ = true;
    if (!netCdfInitialized_) {
        NetCdfConventions::PrintNothingWritten(variables_, [this](int i) { return vars_[ownerOf(i)] != nullptr; });
    }
    NetCdfConventions::Finish(*netCdfWriter_, netCdfInitialized_, *outcome_);
    return 0;
}
