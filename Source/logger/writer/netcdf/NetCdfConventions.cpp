#include "logger/writer/netcdf/NetCdfConventions.h"

#include <cstdio>

#include "data/DataAccess.h"
#include "data/Log.h"
#include "data/UniversalURI.h"

static const NetCdfConventions::Types TYPES[] = {
    {NO_TYPE, NetCdf::NC_DOUBLE_TYPE, NetCdf::NC_DOUBLE_TYPE, NetCdf::NC_DOUBLE_TYPE},
    {STRVALUE, NetCdf::NC_STRING_TYPE, NetCdf::NC_ABSENT_TYPE, NetCdf::NC_CHAR_TYPE},
    {UCHAR1, NetCdf::NC_UBYTE_TYPE, NetCdf::NC_SHORT_TYPE, NetCdf::NC_INT_TYPE},
    {SHORT2, NetCdf::NC_SHORT_TYPE, NetCdf::NC_SHORT_TYPE, NetCdf::NC_SHORT_TYPE},
    {USHORT2, NetCdf::NC_USHORT_TYPE, NetCdf::NC_INT_TYPE, NetCdf::NC_INT_TYPE},
    {FLOAT2, NetCdf::NC_FLOAT_TYPE, NetCdf::NC_FLOAT_TYPE, NetCdf::NC_FLOAT_TYPE},
    {FLOAT3, NetCdf::NC_FLOAT_TYPE, NetCdf::NC_FLOAT_TYPE, NetCdf::NC_FLOAT_TYPE},
    {INT4, NetCdf::NC_INT_TYPE, NetCdf::NC_INT_TYPE, NetCdf::NC_INT_TYPE},
    {FLOAT4, NetCdf::NC_FLOAT_TYPE, NetCdf::NC_FLOAT_TYPE, NetCdf::NC_FLOAT_TYPE},
    {DOUBLE8, NetCdf::NC_DOUBLE_TYPE, NetCdf::NC_DOUBLE_TYPE, NetCdf::NC_DOUBLE_TYPE},
    {DOUBLE4, NetCdf::NC_FLOAT_TYPE, NetCdf::NC_FLOAT_TYPE, NetCdf::NC_FLOAT_TYPE},
    {DOUBLE6, NetCdf::NC_DOUBLE_TYPE, NetCdf::NC_DOUBLE_TYPE, NetCdf::NC_DOUBLE_TYPE},
};

const NetCdfConventions::Types* NetCdfConventions::FindTypes(BinaryDataType type, const Str& elementName) {
    for (const Types& types : TYPES) {
        if (types.type_ == type) return &types;
    }
    printf("Unable to handle Binary type %d for %s\n", type, elementName.cStr());
    return nullptr;
}

const Unit& NetCdfConventions::UnitOf(const VariableSelection& selection, int index, const DataAccess& access) {
    if (selection.unit(index) != nullptr) return *selection.unit(index);
    const Unit* const unit = access.getUnit();
    return unit != nullptr ? *unit : Units::NONE;
}

unsigned short NetCdfConventions::CodeOfLastPart(const Str& name, const Log& log) {
    const size_t dot = name.findLastOf('.');
    return log.getElementURICode(dot < name.length() ? name.cStr() + dot + 1 : name.cStr());
}

static bool IsCoordinate(const Str& standardName) {
    return standardName == UniversalURI::DEPTH || standardName == UniversalURI::LATITUDE ||
           standardName == UniversalURI::LONGITUDE;
}

void NetCdfConventions::Describe(NetCdfWriter& writer, NetCdf::NetCdfVar& var, const Unit& unit,
                                 const ElementURI* standardName, const char* coordinates, const char* requestedText) {
    writer.addVarAtt(var, "units", unit.getAbbreviation());
    if (standardName == nullptr) return;
    writer.addVarAtt(var, "standard_name", *standardName);
    if (IsCoordinate(*standardName)) {
        writer.addVarAtt(var, "long_name", requestedText);
    } else {
        writer.addVarAtt(var, "coordinates", coordinates);
    }
}

void NetCdfConventions::AddFileAtts(NetCdfWriter& writer) {
    writer.addGlobalAtt("Conventions", "CF-1.4");
    writer.addGlobalAtt("CF:featureType", "trajectory");
}

bool NetCdfConventions::Finish(NetCdfWriter& writer, bool hasContent, OutputOutcome& outcome) {
    if (!hasContent) {
        writer.discard();
        outcome.removed();
        return false;
    }
    const bool isWhole = writer.finalize();
    if (!isWhole) outcome.fail();
    return isWhole;
}
