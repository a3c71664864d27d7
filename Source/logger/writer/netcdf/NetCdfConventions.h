#pragma once

#include <cstdio>

#include "logger/writer/OutputOutcome.h"
#include "logger/writer/VariableSelection.h"
#include "utils/netcdf/NetCdfWriter.h"

class DataAccess;

// What the NetCDF outputs have in common: the types of their items, and what the attributes tell readers.
namespace NetCdfConventions {
static const char* const TRAJECTORY_NAME = "ORVEKTrajectory";

// What a value of a stored type becomes; NC_ABSENT_TYPE: nothing.
struct Types {
    BinaryDataType type_;
    NetCdf::NetCdfType inGroup_;  // a variable in a NetCDF-4 file; for texts unless they are arrays
    NetCdf::NetCdfType inTable_;  // a column of a classic file, which has no unsigned types
    NetCdf::NetCdfType setting_;  // a global attribute
};
// Null, and said on standard output, for a type that the outputs cannot handle.
const Types* FindTypes(BinaryDataType type, const Str& elementName);

// The unit in which a variable is written: the one asked for, else that of the log.
const Unit& UnitOf(const VariableSelection& selection, int index, const DataAccess& access);
// For a name that the log does not know: the code that the log has for the part after the last '.'.
unsigned short CodeOfLastPart(const Str& name, const Log& log);

// The unit, and with a standard name either the coordinates that place the values or, for a coordinate, the text that
// was asked for.
void Describe(NetCdfWriter& writer, NetCdf::NetCdfVar& var, const Unit& unit, const ElementURI* standardName,
              const char* coordinates, const char* requestedText);
void AddFileAtts(NetCdfWriter& writer);  // which conventions the file follows

// Ends the file; one without content is removed. True when it is whole.
bool Finish(NetCdfWriter& writer, bool hasContent, OutputOutcome& outcome);
// Says why there is nothing in the file; hasPlace(index) as printMissing's.
template <typename HasPlace>
void PrintNothingWritten(const VariableSelection& selection, HasPlace hasPlace) {
    puts("No netCDF file written");
    selection.printMissing(hasPlace);
}
}  // namespace NetCdfConventions
