#include "logger/writer/netcdf/NetCdfTableLogWriter.h"

#include "data/DataAccess.h"
#include "logger/entry/DataEntry.h"
#include "logger/writer/netcdf/NetCdfConventions.h"
#include "logger/writer/netcdf/NetCdfNames.h"

static const char* const COORDINATES = "Time depth latitude longitude";

NetCdfTableLogWriter::NetCdfTableLogWriter(const Str& filename, bool version4, const RequestedVariables& variables,
                                           bool interpolate, const RequestedVariables& settings)
    : TableLogWriter(nullptr, variables, interpolate),
      filename_(filename),
      netCdfWriter_(NetCdfWriter::NewNetCdfWriter(filename_.cStr(), version4, NetCdfConventions::TRAJECTORY_NAME)),
      settings_(settings, log_),
      vars_(new NetCdf::NetCdfVar*[columns_.count()]()),
      holders_(true) {}

NetCdfTableLogWriter::~NetCdfTableLogWriter() {
    NetCdfTableLogWriter::writeFooter();
}

unsigned int NetCdfTableLogWriter::writeHeader() {
    if (netCdfWriter_ != nullptr && initializeNetCdf()) netCdfInitialized_ = netCdfWriter_->initialize();
    return 0;
}

unsigned int NetCdfTableLogWriter::write(const LogEntry* entry, const Unit* unit) {
    const MutexLocker lock(writeMutex_);
    if (!isValid() || entry == nullptr || !initializeTableLogWriter()) return 0;
    if (!netCdfInitialized_ && watch_.hasChanged()) writeHeader();
    if (!netCdfInitialized_) return 0;
    if (entry->getType() == LogEntry::DATA_LOG_ENTRY) settings_.note(static_cast<const DataEntry&>(*entry));
    return TableLogWriter::write(entry, unit);
}

// Defines what is not defined yet. True when no column and no setting is open any more.
bool NetCdfTableLogWriter::initializeNetCdf() {
    watch_.look();
    bool isComplete = settings_.define(*netCdfWriter_);
    for (int column = 0; column < columns_.count(); ++column) isComplete = defineColumn(column) && isComplete;
    if (!isComplete) return false;
    NetCdfConventions::AddFileAtts(*netCdfWriter_);
    netCdfWriter_->setHeaderRoom(settings_.headerRoom());
    return true;
}

// A name that the log does not know still has its column; with a unit asked for it is told what it would be.
bool NetCdfTableLogWriter::defineColumn(int column) {
    if (vars_[column] != nullptr) return true;
    if (const DataAccess* const access = columns_.access(column)) {
        addVar(column, log_.getElementURI(columns_.code(column)), access->getBinaryType(),
               columns_.unitOf(column, *access), access->getUniversalCode());
        return true;
    }
    const Str name = columns_.name(column);
    if (const Unit* const unit = columns_.unitOfName(column)) {
        const ElementURI uri(ElementURI::NO_CODE, name, ElementURI::DATA_ELEMENT);
        addVar(column, &uri, unit->getDefaultDataType(), *unit, NetCdfConventions::CodeOfLastPart(name, log_));
        writeToColumn(nullptr, column);
        return true;
    }
    if (!log_.isDirectoryRead()) return false;
    vars_[column] = netCdfWriter_->addVar(NetCdfNames::OfElement(name), NetCdf::NC_FLOAT_TYPE, nullptr);
    netCdfWriter_->recover();
    return true;
}

void NetCdfTableLogWriter::addVar(int column, const ElementURI* name, BinaryDataType type, const Unit& unit,
                                  unsigned short universalCode) {
    const NetCdfConventions::Types* const types = NetCdfConventions::FindTypes(type, *name);
    if (types == nullptr || types->inTable_ == NetCdf::NC_ABSENT_TYPE) return;
    const Str varName = NetCdfNames::OfElement(*name);
    vars_[column] = netCdfWriter_->findVar(varName);
    if (vars_[column] != nullptr) return;
    NetCdf::NetCdfVar* const var = netCdfWriter_->addVar(varName, types->inTable_, nullptr);
    if (var != nullptr) {
        vars_[column] = var;
        DataValue* const holder = unit.dataValue(type);
        var->setHolder(holder);
        holders_.push(holder);
        NetCdfConventions::Describe(*netCdfWriter_, *var, unit, columns_.standardName(column, universalCode),
                                    COORDINATES, columns_.name(column));
    }
    netCdfWriter_->recover();
}

unsigned int NetCdfTableLogWriter::writeToColumn(const DataEntry* entry, int column) {
    if (vars_[column] != nullptr) vars_[column]->hold(entry == nullptr ? nullptr : entry->getDataValue());
    return 0;
}

unsigned int NetCdfTableLogWriter::writeRow() {
    return netCdfWriter_ != nullptr && netCdfWriter_->writeRecord(lastTime_);
}

unsigned int NetCdfTableLogWriter::writeFooter() {
    if (netCdfWriter_ == nullptr || wroteFooter_) return 0;
    wroteFooter_ = true;
    unsigned int rows = TableLogWriter::writeFooter();
    if (netCdfInitialized_) {
        if (isWhole()) rows += writeRow();
        settings_.put(*netCdfWriter_);
    } else {
        NetCdfConventions::PrintNothingWritten(columns_, [this](int column) { return vars_[column] != nullptr; });
    }
    NetCdfConventions::Finish(*netCdfWriter_, netCdfInitialized_, *outcome_);
    return rows;
}

void NetCdfTableLogWriter::resetInputs() {
    TableLogWriter::resetInputs();
    settings_.resetInputs();
    watch_.reset();
}
